#include "orvexxml/collections/durationcol.h"

namespace OrvexXml {

CdurationCol::~CdurationCol() {}

}  // namespace OrvexXml
