#include "orvexxml/collections/i8col.h"

namespace OrvexXml {

Ci8Col::~Ci8Col() {}

}  // namespace OrvexXml
