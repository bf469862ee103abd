#include "orvexxml/collections/i1col.h"

namespace OrvexXml {

Ci1Col::~Ci1Col() {}

}  // namespace OrvexXml
