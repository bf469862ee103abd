#include "orvexxml/collections/monthcol.h"

namespace OrvexXml {

CmonthCol::~CmonthCol() {}

}  // namespace OrvexXml
