#include "orvexxml/collections/ui2col.h"

namespace OrvexXml {

Cui2Col::~Cui2Col() {}

}  // namespace OrvexXml
