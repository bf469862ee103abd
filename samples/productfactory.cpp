// Generated class factory of the abstract type Product.
#include "productfactory.h"

#include <cstring>

#include "book.h"
#include "gadget.h"

using namespace OrvexXml;

namespace Samples {

namespace {

CXmlObjectBase* NewBook() { return new CBook(); }
CXmlObjectBase* NewGadget() { return new CGadget(); }

// The types derived from Product, by name and namespace. A name appears once per namespace,
// so the first entry that matches is the only one.
const struct {
    const char* pszType;
    const char* pszNamespace;
    CXmlObjectBase* (*pfnCreate)();
} kProducts[] = {
    {"Book", "urn:orvex:samples:shop", &NewBook},
    {"Gadget", "urn:orvex:samples:shop", &NewGadget},
};

}  // namespace

CSmartPtr<CXmlObjectBase> CProductFactory::CreateProduct(CXmlElement* pElement) {
    const std::string strType = GetElementType(pElement);
    if (strType.empty()) return nullptr;
    const std::string strNamespace = GetElementTypeNamespaceUri(pElement);
    for (const auto& entry : kProducts) {
        if (strType == entry.pszType && strNamespace == entry.pszNamespace) return entry.pfnCreate();
    }
    return nullptr;
}

}  // namespace Samples
