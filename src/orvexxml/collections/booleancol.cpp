#include "orvexxml/collections/booleancol.h"

namespace OrvexXml {

CbooleanCol::~CbooleanCol() {}

}  // namespace OrvexXml
