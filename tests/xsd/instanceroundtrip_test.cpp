// Random valid documents of the order book schema and of the content models through the
// classes orvex-xsd generates from them: they must come back valid and unchanged.
#include "support/instanceroundtrip.h"

using namespace OrvexXml;
using InstanceRoundTrip::CheckSet;
using InstanceRoundTrip::CSchemaSet;

// The document elements of the two sets, declared in each set's schema.h.
namespace XsdOrderBook {
CSmartPtr<CXmlGeneratedClass> CreateRootElement(const char* name, const char* ns);
}
namespace XsdModels {
CSmartPtr<CXmlGeneratedClass> CreateRootElement(const char* name, const char* ns);
}

namespace {

const std::string kSourceDir = ORVEXXML_SOURCE_DIR;

TEST(GeneratedRoundTrip, RandomOrderBooksComeBackValidAndEqual) {
    CheckSet({"order",
              kSourceDir + "/bench/order/order.xsd",
              &XsdOrderBook::CreateRootElement,
              {{"orderBook", "urn:example:orders"}},
              300},
             11);
}

TEST(GeneratedRoundTrip, RandomContentModelsComeBackValidAndEqual) {
    CheckSet({"models",
              kSourceDir + "/tests/xsd/contentmodels.xsd",
              &XsdModels::CreateRootElement,
              {{"Shape", ""},
               {"Picks", ""},
               {"Price", ""},
               {"Note", ""},
               {"Box", ""},
               {"Config", ""},
               {"Schedule", ""},
               {"Journal", ""},
               {"Votes", ""},
               {"Tree", ""}},
              40},
             5);
}

}  // namespace
