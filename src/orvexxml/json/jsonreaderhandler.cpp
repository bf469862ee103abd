#include "orvexxml/json/jsonreaderhandler.h"

namespace OrvexXml {

IJsonReaderHandler::IJsonReaderHandler() : CInstanceMonitor("IJsonReaderHandler") {}

IJsonReaderHandler::~IJsonReaderHandler() {}

}  // namespace OrvexXml
