#include "orvexxml/writers/jsoncontext.h"

namespace OrvexXml {

CJsonContext::CJsonContext() : m_eSupportRoundtrip(JsonRoundTrip_Full), m_bAllowComments(true) {}

CJsonContext::~CJsonContext() {}

}  // namespace OrvexXml
