#include "orvexxml/collections/integercol.h"

namespace OrvexXml {

CintegerCol::~CintegerCol() {}

}  // namespace OrvexXml
