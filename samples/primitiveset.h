// Generated class for the element PrimitiveSet (namespace urn:orvex:samples:primitives).
#pragma once

#include <orvexxml/orvexxml.h>

#include <cstdint>
#include <string>

namespace Samples {

class CPrimitiveSet : public OrvexXml::CXmlGeneratedClass {
public:
    CPrimitiveSet();
    CPrimitiveSet(const CPrimitiveSet& rhs);
    CPrimitiveSet& operator=(const CPrimitiveSet& rhs);
    virtual ~CPrimitiveSet();

    static OrvexXml::CSmartPtr<CPrimitiveSet> CreateInstance() { return new CPrimitiveSet(); }

    // ByteVal: xs:byte, mandatory
    char GetByteVal() const { return m_ByteVal; }
    void SetByteVal(char value) { m_ByteVal = value; }
    // ShortVal: xs:short, optional
    int16_t GetShortVal() const { return m_ShortVal; }
    void SetShortVal(int16_t value) {
        m_ShortVal = value;
        m_bValidShortVal = true;
    }
    bool IsValidShortVal() const { return m_bValidShortVal; }
    void SetValidShortVal(bool bValid) { m_bValidShortVal = bValid; }
    // IntVal: xs:int, mandatory, default 42
    int32_t GetIntVal() const { return m_IntVal; }
    void SetIntVal(int32_t value) { m_IntVal = value; }
    // LongVal: xs:long, optional
    int64_t GetLongVal() const { return m_LongVal; }
    void SetLongVal(int64_t value) {
        m_LongVal = value;
        m_bValidLongVal = true;
    }
    bool IsValidLongVal() const { return m_bValidLongVal; }
    void SetValidLongVal(bool bValid) { m_bValidLongVal = bValid; }
    // UByteVal: xs:unsignedByte, mandatory
    uint8_t GetUByteVal() const { return m_UByteVal; }
    void SetUByteVal(uint8_t value) { m_UByteVal = value; }
    // UShortVal: xs:unsignedShort, mandatory
    uint16_t GetUShortVal() const { return m_UShortVal; }
    void SetUShortVal(uint16_t value) { m_UShortVal = value; }
    // UIntVal: xs:unsignedInt, optional
    uint32_t GetUIntVal() const { return m_UIntVal; }
    void SetUIntVal(uint32_t value) {
        m_UIntVal = value;
        m_bValidUIntVal = true;
    }
    bool IsValidUIntVal() const { return m_bValidUIntVal; }
    void SetValidUIntVal(bool bValid) { m_bValidUIntVal = bValid; }
    // ULongVal: xs:unsignedLong, mandatory
    uint64_t GetULongVal() const { return m_ULongVal; }
    void SetULongVal(uint64_t value) { m_ULongVal = value; }
    // FloatVal: xs:float, mandatory
    float GetFloatVal() const { return m_FloatVal; }
    void SetFloatVal(float value) { m_FloatVal = value; }
    // DoubleVal: xs:double, mandatory, written with the format "%.3f"
    double GetDoubleVal() const { return m_DoubleVal; }
    void SetDoubleVal(double value) { m_DoubleVal = value; }
    // Text: xs:token, mandatory, whitespace collapsed
    const std::string& GetText() const { return m_Text; }
    void SetText(const std::string& value) { m_Text = value; }
    // Flag: xs:boolean, optional, default true
    bool GetFlag() const { return m_Flag; }
    void SetFlag(bool value) {
        m_Flag = value;
        m_bValidFlag = true;
    }
    bool IsValidFlag() const { return m_bValidFlag; }
    void SetValidFlag(bool bValid) { m_bValidFlag = bValid; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:orvex:samples:primitives"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:orvex:samples:primitives"; }

private:
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);
    void CopyMembers(const CPrimitiveSet& rhs);

    char m_ByteVal;
    int16_t m_ShortVal;
    bool m_bValidShortVal;
    int32_t m_IntVal;
    int64_t m_LongVal;
    bool m_bValidLongVal;
    uint8_t m_UByteVal;
    uint16_t m_UShortVal;
    uint32_t m_UIntVal;
    bool m_bValidUIntVal;
    uint64_t m_ULongVal;
    float m_FloatVal;
    double m_DoubleVal;
    std::string m_Text;
    bool m_Flag;
    bool m_bValidFlag;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
