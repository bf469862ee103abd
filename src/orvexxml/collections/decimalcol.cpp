#include "orvexxml/collections/decimalcol.h"

namespace OrvexXml {

CdecimalCol::~CdecimalCol() {}

}  // namespace OrvexXml
