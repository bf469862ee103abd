#include "orvexxml/collections/hexbinarycol.h"

namespace OrvexXml {

ChexBinaryCol::~ChexBinaryCol() {}

}  // namespace OrvexXml
