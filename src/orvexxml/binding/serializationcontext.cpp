#include "orvexxml/binding/serializationcontext.h"

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

CSerializationContext::CSerializationContext()
    : m_bWriteTypeAttribute(true),
      m_bIgnoreInvalidCollectionCounts(false),
      m_bIgnoreMissingChoice(false),
      m_bIgnoreMissingMandatoryElements(false),
      m_bIgnoreUnknownElements(false),
      m_bIgnoreUnknownAttributes(false),
      m_bIgnoreNamespaces(false),
      m_eSchemaType(SchemaType_XSD),
      m_bNoOptionalAttributeDefaultOutput(false),
      m_bWriteDefaultElementValues(false),
      m_bStripCDATA(true),
      m_strIndentChars("\t"),
      m_bCheckCharacters(false),
      m_nMaxDepth(DefaultMaxDepth) {}

CSerializationContext::~CSerializationContext() {}

CSerializationContext& CSerializationContext::GetDefaultContext() {
    // Never destroyed: objects with static storage may still write themselves with it
    // after every exit handler ran.
    static CSerializationContext* s_pDefaultContext = new CSerializationContext;
    return *s_pDefaultContext;
}

void CSerializationContext::SetIgnoreMissingMandatoryElements(bool bValue) {
    if (bValue && m_bIgnoreUnknownElements) {
        throw COxInvalidStateException(
            "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, "
            "you can not ignore both\nSet IgnoreUnknownElements to false before setting "
            "IgnoreMissingMandatoryElements to true");
    }
    m_bIgnoreMissingMandatoryElements = bValue;
}

void CSerializationContext::SetIgnoreUnknownElements(bool bValue) {
    if (bValue && m_bIgnoreMissingMandatoryElements) {
        throw COxInvalidStateException(
            "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, "
            "you can not ignore both\nSet IgnoreMissingMandatoryElements to false before setting "
            "IgnoreUnknownElements to true");
    }
    m_bIgnoreUnknownElements = bValue;
}

void CSerializationContext::SetIndentChars(const char* pszIndent) {
    std::string strIndent = pszIndent ? pszIndent : "";
    for (char c : strIndent) {
        if (c != ' ' && c != '\t') {
            throw COxInvalidParamException("IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
        }
    }
    m_strIndentChars = strIndent;
}

void CSerializationContext::ThrowTooDeep(int32_t nMaxDepth, const std::string& strPath) {
    throw COxValidationException(FormatString("The element is nested deeper than the limit of %d levels; raise "
                                              "MaxDepth of the context if such a document is intended.",
                                              nMaxDepth),
                                 strPath);
}

CSerializationContext::CRootAttributes::CRootAttributes(const CRootAttributes& other)
    : m_pAttributes(other.m_pAttributes ? other.m_pAttributes->Clone() : CSmartPtr<CAttributeCol>()) {}

CSerializationContext::CRootAttributes& CSerializationContext::CRootAttributes::operator=(
    const CRootAttributes& other) {
    // The clone is made before the old list goes, so that a failure leaves the target as it was.
    if (this != &other) m_pAttributes = other.m_pAttributes ? other.m_pAttributes->Clone() : CSmartPtr<CAttributeCol>();
    return *this;
}

CSmartPtr<CAttributeCol> CSerializationContext::GetAdditionalRootAttributes() const {
    if (!m_rootAttributes.m_pAttributes) m_rootAttributes.m_pAttributes = new CAttributeCol("", "##any", "");
    return m_rootAttributes.m_pAttributes;
}

template <class T>
CSerializationContext::CContextHolder<T>::CContextHolder(const CContextHolder& other)
    : m_pContext(other.m_pContext ? new T(*other.m_pContext) : nullptr) {}

template <class T>
CSerializationContext::CContextHolder<T>& CSerializationContext::CContextHolder<T>::operator=(
    const CContextHolder& other) {
    if (this == &other) return *this;
    if (!other.m_pContext) {
        delete m_pContext;
        m_pContext = nullptr;
    } else if (m_pContext) {
        *m_pContext = *other.m_pContext;
    } else {
        m_pContext = new T(*other.m_pContext);
    }
    return *this;
}

template <class T>
CSerializationContext::CContextHolder<T>::~CContextHolder() {
    delete m_pContext;
}

template <class T>
T& CSerializationContext::CContextHolder<T>::Get() {
    if (!m_pContext) m_pContext = new T;
    return *m_pContext;
}

template class CSerializationContext::CContextHolder<CJsonContext>;
template class CSerializationContext::CContextHolder<CFastInfosetContext>;

CJsonContext& CSerializationContext::GetJsonContext() const { return m_jsonContext.Get(); }

CFastInfosetContext& CSerializationContext::GetFIContext() const { return m_fiContext.Get(); }

void CSerializationContext::SetMaxDepth(int32_t nDepth) {
    if (nDepth < 1) throw COxInvalidParamException("MaxDepth must be at least 1, the level of the root element");
    m_nMaxDepth = nDepth;
}

}  // namespace OrvexXml
