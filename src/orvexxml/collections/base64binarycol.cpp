#include "orvexxml/collections/base64binarycol.h"

namespace OrvexXml {

Cbase64BinaryCol::~Cbase64BinaryCol() {}

}  // namespace OrvexXml
