#include "orvexxml/collections/i2col.h"

namespace OrvexXml {

Ci2Col::~Ci2Col() {}

}  // namespace OrvexXml
