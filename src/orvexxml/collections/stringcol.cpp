#include "orvexxml/collections/stringcol.h"

namespace OrvexXml {

CstringCol::~CstringCol() {}

}  // namespace OrvexXml
