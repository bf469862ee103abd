#include "orvexxml/collections/i4col.h"

namespace OrvexXml {

Ci4Col::~Ci4Col() {}

}  // namespace OrvexXml
