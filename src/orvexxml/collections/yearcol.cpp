#include "orvexxml/collections/yearcol.h"

namespace OrvexXml {

CyearCol::~CyearCol() {}

}  // namespace OrvexXml
