// The reading fuzzer's corpus as the sample tests use it: its documents read into the sample
// classes with the settings their first byte picks.
#pragma once

#include <string>

#include "orvexxml/orvexxml.h"
#include "support/testfiles.h"

namespace OrvexTest {

const std::string kCorpus = std::string(ORVEXXML_SOURCE_DIR) + "/fuzz/corpus/read_xml/";

// The settings the first byte of a corpus document picks, as the reading fuzzer does; with
// bKeepCDATA false a CDATA section is read as plain text in every setting.
inline void ApplySettings(char cSelector, OrvexXml::CSerializationContext& ctx, bool bKeepCDATA = true) {
    if (cSelector % 4 == 1) {
        ctx.SetIgnoreUnknownElements(true);
        ctx.SetIgnoreUnknownAttributes(true);
    } else if (cSelector % 4 == 2) {
        ctx.SetIgnoreMissingMandatoryElements(true);
        if (bKeepCDATA) ctx.SetStripCDATA(false);
    }
}

// An object of class T read from a corpus document under the settings its first byte picks.
template <class T>
OrvexXml::CSmartPtr<OrvexXml::CXmlObjectBase> FromCorpus(const char* pszFile, bool bKeepCDATA = true) {
    const std::string strData = ReadFile(kCorpus + pszFile);
    OrvexXml::CSerializationContext ctx;
    ApplySettings(strData[0], ctx, bKeepCDATA);
    OrvexXml::CSmartPtr<T> object = T::CreateInstance();
    object->FromXml(strData.substr(1).c_str(), ctx);
    return OrvexXml::CSmartPtr<OrvexXml::CXmlObjectBase>(object->GetBase());
}

}  // namespace OrvexTest
