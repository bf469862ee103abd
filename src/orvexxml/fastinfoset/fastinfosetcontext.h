#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/fastinfoset/fivocabulary.h"
#include "orvexxml/values/itemtype.h"

namespace OrvexXml {

// The Fast Infoset settings of a CSerializationContext, which creates it on first use and
// owns it: how the values of each primitive type are encoded, which strings are short enough
// to enter a table, and whether documents start from a ready-made vocabulary. Plain data,
// copyable; reading and writing never change it.
class ORVEXXML_API CFastInfosetContext {
public:
    // The three ways of writing a value.
    enum EncodingKind : int32_t {
        EncodingKind_DefaultString = 0,       // the document's string encoding, UTF-8
        EncodingKind_RestrictedAlphabet = 1,  // packed by one of the vocabulary's alphabets
        EncodingKind_Algorithm = 2            // one of the built-in encoding algorithms, binary
    };

    // How the values of one type are encoded. dwIndex is the alphabet's index (1 or 2) for a
    // restricted alphabet, the algorithm's index (1 to 10) for an encoding algorithm.
    struct EncodedCharacterString {
        EncodingKind eKind;
        uint32_t dwIndex;
    };

    // One entry per ItemType, ItemType_invalid to ItemType_XmlCollection.
    static constexpr uint32_t EncodingCount = 29;
    // Strings encoded as UTF-8 (the only form written) or UTF-16BE.
    static constexpr uint8_t StringEncoding_UTF8 = 0;
    static constexpr uint8_t StringEncoding_UTF16BE = 1;

    CFastInfosetContext();
    CFastInfosetContext(const CFastInfosetContext& other);
    CFastInfosetContext& operator=(const CFastInfosetContext& other) = default;
    CFastInfosetContext& operator=(CFastInfosetContext&& other) = default;
    virtual ~CFastInfosetContext();

    uint8_t GetDefaultStringEncoding() const { return m_byDefaultStringEncoding; }

    // dwType is an ItemType; it must be below EncodingCount.
    EncodedCharacterString GetEncoding(uint32_t dwType) const { return m_encodings[dwType]; }
    void SetEncoding(uint32_t dwType, EncodedCharacterString encoding) { m_encodings[dwType] = encoding; }

    // An attribute value of this length in bytes or longer enters no table; 0 turns the
    // table of attribute values off.
    uint32_t GetAttributeMaxAddLength() const { return m_dwAttributeMaxAddLength; }
    void SetAttributeMaxAddLength(uint32_t dwLength) { m_dwAttributeMaxAddLength = dwLength; }
    // The same for the character chunks of element content.
    uint32_t GetElementMaxAddLength() const { return m_dwElementMaxAddLength; }
    void SetElementMaxAddLength(uint32_t dwLength) { m_dwElementMaxAddLength = dwLength; }

    // Whether writer and reader start from GetVocabulary() instead of an empty vocabulary.
    bool GetUseGeneratedVocabulary() const { return m_bUseGeneratedVocabulary; }
    void SetUseGeneratedVocabulary(bool bUse) { m_bUseGeneratedVocabulary = bUse; }
    // The ready-made vocabulary, for generated code to fill with the names and values of its
    // schema. Each document works on a copy of it.
    CFIVocabulary* GetVocabulary() { return &m_vocabulary; }

    // The URI by which a document names the ready-made vocabulary.
    std::string GetExternalVocabularyURI() const { return m_strExternalVocabularyURI; }
    void SetExternalVocabularyURI(std::string strUri) { m_strExternalVocabularyURI = std::move(strUri); }

    // Binary algorithms for binary data, integers, booleans and floats; restricted alphabets
    // for dates, times, decimals and big integers; the string form for durations. The types
    // not named keep their encoding.
    void SetSuggestedValues();

private:
    uint8_t m_byDefaultStringEncoding;
    EncodedCharacterString m_encodings[EncodingCount];
    uint32_t m_dwAttributeMaxAddLength;
    uint32_t m_dwElementMaxAddLength;
    bool m_bUseGeneratedVocabulary;
    CFIVocabulary m_vocabulary;
    std::string m_strExternalVocabularyURI;
};

}  // namespace OrvexXml
