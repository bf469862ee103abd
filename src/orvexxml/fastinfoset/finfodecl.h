#pragma once

#include <cstdint>

namespace OrvexXml {

// The XML declaration written in front of a Fast Infoset document, if any. Each names the
// encoding "finf"; they differ in version and standalone pseudo-attributes.
enum FInfoDecl : int32_t {
    FInfoDecl_None = 0,
    FInfoDecl_Encoding = 1,                // <?xml encoding='finf'?>
    FInfoDecl_EncodingStandaloneYes = 2,   // <?xml encoding='finf' standalone='yes'?>
    FInfoDecl_EncodingStandaloneNo = 3,    // <?xml encoding='finf' standalone='no'?>
    FInfoDecl_Version10 = 4,               // <?xml version='1.0' encoding='finf'?>
    FInfoDecl_Version10StandaloneYes = 5,  // <?xml version='1.0' encoding='finf' standalone='yes'?>
    FInfoDecl_Version10StandaloneNo = 6,   // <?xml version='1.0' encoding='finf' standalone='no'?>
    FInfoDecl_Version11 = 7,               // <?xml version='1.1' encoding='finf'?>
    FInfoDecl_Version11StandaloneYes = 8,  // <?xml version='1.1' encoding='finf' standalone='yes'?>
    FInfoDecl_Version11StandaloneNo = 9    // <?xml version='1.1' encoding='finf' standalone='no'?>
};

}  // namespace OrvexXml
