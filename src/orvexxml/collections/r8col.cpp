#include "orvexxml/collections/r8col.h"

namespace OrvexXml {

Cr8Col::~Cr8Col() {}

}  // namespace OrvexXml
