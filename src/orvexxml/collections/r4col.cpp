#include "orvexxml/collections/r4col.h"

namespace OrvexXml {

Cr4Col::~Cr4Col() {}

}  // namespace OrvexXml
