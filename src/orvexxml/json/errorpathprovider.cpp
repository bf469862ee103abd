#include "orvexxml/json/errorpathprovider.h"

namespace OrvexXml {

IErrorPathProvider::~IErrorPathProvider() {}

}  // namespace OrvexXml
