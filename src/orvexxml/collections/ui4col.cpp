#include "orvexxml/collections/ui4col.h"

namespace OrvexXml {

Cui4Col::~Cui4Col() {}

}  // namespace OrvexXml
