#include "orvexxml/collections/ui1col.h"

namespace OrvexXml {

Cui1Col::~Cui1Col() {}

}  // namespace OrvexXml
