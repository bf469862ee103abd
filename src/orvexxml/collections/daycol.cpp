#include "orvexxml/collections/daycol.h"

namespace OrvexXml {

CdayCol::~CdayCol() {}

}  // namespace OrvexXml
