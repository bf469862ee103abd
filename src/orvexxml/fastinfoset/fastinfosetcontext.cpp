#include "orvexxml/fastinfoset/fastinfosetcontext.h"

namespace OrvexXml {

CFastInfosetContext::CFastInfosetContext()
    : m_byDefaultStringEncoding(StringEncoding_UTF8),
      m_dwAttributeMaxAddLength(6),
      m_dwElementMaxAddLength(6),
      m_bUseGeneratedVocabulary(false) {
    for (EncodedCharacterString& encoding : m_encodings) encoding = {EncodingKind_DefaultString, 0};
}

CFastInfosetContext::CFastInfosetContext(const CFastInfosetContext& other)
    : m_byDefaultStringEncoding(other.m_byDefaultStringEncoding),
      m_dwAttributeMaxAddLength(other.m_dwAttributeMaxAddLength),
      m_dwElementMaxAddLength(other.m_dwElementMaxAddLength),
      m_bUseGeneratedVocabulary(other.m_bUseGeneratedVocabulary),
      m_vocabulary(other.m_vocabulary),
      m_strExternalVocabularyURI(other.m_strExternalVocabularyURI) {
    for (uint32_t n = 0; n < EncodingCount; ++n) m_encodings[n] = other.m_encodings[n];
}

CFastInfosetContext::~CFastInfosetContext() {}

void CFastInfosetContext::SetSuggestedValues() {
    // The algorithm numbers of the standard: 1 hexadecimal, 2 base64, 3 short, 4 int, 5 long,
    // 6 boolean, 7 float, 8 double. An unsigned type takes the size above its own width, so
    // that its whole range fits the signed form.
    static const struct {
        ItemType eType;
        EncodingKind eKind;
        uint32_t dwIndex;
    } s_suggested[] = {
        {ItemType_hexBinary, EncodingKind_Algorithm, 1},
        {ItemType_base64Binary, EncodingKind_Algorithm, 2},
        {ItemType_i1, EncodingKind_Algorithm, 3},
        {ItemType_i2, EncodingKind_Algorithm, 3},
        {ItemType_ui1, EncodingKind_Algorithm, 3},
        {ItemType_i4, EncodingKind_Algorithm, 4},
        {ItemType_ui2, EncodingKind_Algorithm, 4},
        {ItemType_i8, EncodingKind_Algorithm, 5},
        {ItemType_ui4, EncodingKind_Algorithm, 5},
        {ItemType_ui8, EncodingKind_Algorithm, 5},
        {ItemType_boolean, EncodingKind_Algorithm, 6},
        {ItemType_r4, EncodingKind_Algorithm, 7},
        {ItemType_r8, EncodingKind_Algorithm, 8},
        {ItemType_duration, EncodingKind_DefaultString, 0},
        {ItemType_yearMonth, EncodingKind_RestrictedAlphabet, 2},
        {ItemType_monthDay, EncodingKind_RestrictedAlphabet, 2},
        {ItemType_year, EncodingKind_RestrictedAlphabet, 2},
        {ItemType_month, EncodingKind_RestrictedAlphabet, 2},
        {ItemType_day, EncodingKind_RestrictedAlphabet, 2},
        {ItemType_date, EncodingKind_RestrictedAlphabet, 2},
        {ItemType_datetime, EncodingKind_RestrictedAlphabet, 2},
        {ItemType_time, EncodingKind_RestrictedAlphabet, 2},
        {ItemType_decimal, EncodingKind_RestrictedAlphabet, 1},
        {ItemType_integer, EncodingKind_RestrictedAlphabet, 1},
    };
    for (const auto& entry : s_suggested) m_encodings[entry.eType] = {entry.eKind, entry.dwIndex};
}

}  // namespace OrvexXml
