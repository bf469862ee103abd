#include "orvexxml/collections/ui8col.h"

namespace OrvexXml {

Cui8Col::~Cui8Col() {}

}  // namespace OrvexXml
