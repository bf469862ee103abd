// Generated class for the element AllTypes (namespace urn:orvex:samples:alltypes): one optional
// element of each primitive kind and one repeating element of each kind with a typed collection,
// each under facets.
#pragma once

#include <orvexxml/orvexxml.h>

#include <cstdint>
#include <string>

namespace Samples {

class CAllTypes : public OrvexXml::CXmlGeneratedClass {
public:
    CAllTypes();
    virtual ~CAllTypes();

    static OrvexXml::CSmartPtr<CAllTypes> CreateInstance() { return new CAllTypes(); }

    // HexBinary: xs:hexBinary, optional, maxLength 16
    const OrvexXml::CBinaryData& GetHexBinary() const { return m_HexBinary; }
    void SetHexBinary(const OrvexXml::CBinaryData& value) {
        m_HexBinary = value;
        m_bValidHexBinary = true;
    }
    bool IsValidHexBinary() const { return m_bValidHexBinary; }
    void SetValidHexBinary(bool bValid) { m_bValidHexBinary = bValid; }
    // Base64Binary: xs:base64Binary, optional, maxLength 64
    const OrvexXml::CBinaryData& GetBase64Binary() const { return m_Base64Binary; }
    void SetBase64Binary(const OrvexXml::CBinaryData& value) {
        m_Base64Binary = value;
        m_bValidBase64Binary = true;
    }
    bool IsValidBase64Binary() const { return m_bValidBase64Binary; }
    void SetValidBase64Binary(bool bValid) { m_bValidBase64Binary = bValid; }
    // Byte: xs:byte, optional, minInclusive -128, maxInclusive 127, totalDigits 4
    char GetByte() const { return m_Byte; }
    void SetByte(char value) {
        m_Byte = value;
        m_bValidByte = true;
    }
    bool IsValidByte() const { return m_bValidByte; }
    void SetValidByte(bool bValid) { m_bValidByte = bValid; }
    // Short: xs:short, optional, minInclusive -32768, maxInclusive 32767, totalDigits 6
    int16_t GetShort() const { return m_Short; }
    void SetShort(int16_t value) {
        m_Short = value;
        m_bValidShort = true;
    }
    bool IsValidShort() const { return m_bValidShort; }
    void SetValidShort(bool bValid) { m_bValidShort = bValid; }
    // Int: xs:int, optional, maxInclusive 2147483647, minExclusive -2147483648, totalDigits 11
    int32_t GetInt() const { return m_Int; }
    void SetInt(int32_t value) {
        m_Int = value;
        m_bValidInt = true;
    }
    bool IsValidInt() const { return m_bValidInt; }
    void SetValidInt(bool bValid) { m_bValidInt = bValid; }
    // Long: xs:long, optional, minInclusive -9223372036854775808, maxInclusive 9223372036854775806, totalDigits 20
    int64_t GetLong() const { return m_Long; }
    void SetLong(int64_t value) {
        m_Long = value;
        m_bValidLong = true;
    }
    bool IsValidLong() const { return m_bValidLong; }
    void SetValidLong(bool bValid) { m_bValidLong = bValid; }
    // UnsignedByte: xs:unsignedByte, optional, minInclusive 0, maxInclusive 255, totalDigits 3
    uint8_t GetUnsignedByte() const { return m_UnsignedByte; }
    void SetUnsignedByte(uint8_t value) {
        m_UnsignedByte = value;
        m_bValidUnsignedByte = true;
    }
    bool IsValidUnsignedByte() const { return m_bValidUnsignedByte; }
    void SetValidUnsignedByte(bool bValid) { m_bValidUnsignedByte = bValid; }
    // UnsignedShort: xs:unsignedShort, optional, minInclusive 1, maxInclusive 65535, totalDigits 5
    uint16_t GetUnsignedShort() const { return m_UnsignedShort; }
    void SetUnsignedShort(uint16_t value) {
        m_UnsignedShort = value;
        m_bValidUnsignedShort = true;
    }
    bool IsValidUnsignedShort() const { return m_bValidUnsignedShort; }
    void SetValidUnsignedShort(bool bValid) { m_bValidUnsignedShort = bValid; }
    // UnsignedInt: xs:unsignedInt, optional, minInclusive 0, maxInclusive 4294967295, totalDigits 10
    uint32_t GetUnsignedInt() const { return m_UnsignedInt; }
    void SetUnsignedInt(uint32_t value) {
        m_UnsignedInt = value;
        m_bValidUnsignedInt = true;
    }
    bool IsValidUnsignedInt() const { return m_bValidUnsignedInt; }
    void SetValidUnsignedInt(bool bValid) { m_bValidUnsignedInt = bValid; }
    // UnsignedLong: xs:unsignedLong, optional, minInclusive 0, maxInclusive 18446744073709551615, totalDigits 20
    uint64_t GetUnsignedLong() const { return m_UnsignedLong; }
    void SetUnsignedLong(uint64_t value) {
        m_UnsignedLong = value;
        m_bValidUnsignedLong = true;
    }
    bool IsValidUnsignedLong() const { return m_bValidUnsignedLong; }
    void SetValidUnsignedLong(bool bValid) { m_bValidUnsignedLong = bValid; }
    // Float: xs:float, optional, minInclusive -INF, maxInclusive INF
    float GetFloat() const { return m_Float; }
    void SetFloat(float value) {
        m_Float = value;
        m_bValidFloat = true;
    }
    bool IsValidFloat() const { return m_bValidFloat; }
    void SetValidFloat(bool bValid) { m_bValidFloat = bValid; }
    // Double: xs:double, optional, minInclusive -INF, maxInclusive INF
    double GetDouble() const { return m_Double; }
    void SetDouble(double value) {
        m_Double = value;
        m_bValidDouble = true;
    }
    bool IsValidDouble() const { return m_bValidDouble; }
    void SetValidDouble(bool bValid) { m_bValidDouble = bValid; }
    // Duration: xs:duration, optional, minInclusive -P10000Y, maxInclusive P10000Y
    const OrvexXml::CDateTimeSpan& GetDuration() const { return m_Duration; }
    void SetDuration(const OrvexXml::CDateTimeSpan& value) {
        m_Duration = value;
        m_bValidDuration = true;
    }
    bool IsValidDuration() const { return m_bValidDuration; }
    void SetValidDuration(bool bValid) { m_bValidDuration = bValid; }
    // GYearMonth: xs:gYearMonth, optional, minInclusive -9999-01, maxInclusive 9999-12
    const OrvexXml::CDateTime& GetGYearMonth() const { return m_GYearMonth; }
    void SetGYearMonth(const OrvexXml::CDateTime& value) {
        m_GYearMonth = value;
        m_bValidGYearMonth = true;
    }
    bool IsValidGYearMonth() const { return m_bValidGYearMonth; }
    void SetValidGYearMonth(bool bValid) { m_bValidGYearMonth = bValid; }
    // GMonthDay: xs:gMonthDay, optional, minInclusive --01-02, maxInclusive --12-31
    const OrvexXml::CDateTime& GetGMonthDay() const { return m_GMonthDay; }
    void SetGMonthDay(const OrvexXml::CDateTime& value) {
        m_GMonthDay = value;
        m_bValidGMonthDay = true;
    }
    bool IsValidGMonthDay() const { return m_bValidGMonthDay; }
    void SetValidGMonthDay(bool bValid) { m_bValidGMonthDay = bValid; }
    // GYear: xs:gYear, optional, minInclusive 0001
    uint16_t GetGYear() const { return m_GYear; }
    void SetGYear(uint16_t value) {
        m_GYear = value;
        m_bValidGYear = true;
    }
    bool IsValidGYear() const { return m_bValidGYear; }
    void SetValidGYear(bool bValid) { m_bValidGYear = bValid; }
    // GMonth: xs:gMonth, optional, minInclusive --01, maxInclusive --12
    uint8_t GetGMonth() const { return m_GMonth; }
    void SetGMonth(uint8_t value) {
        m_GMonth = value;
        m_bValidGMonth = true;
    }
    bool IsValidGMonth() const { return m_bValidGMonth; }
    void SetValidGMonth(bool bValid) { m_bValidGMonth = bValid; }
    // GDay: xs:gDay, optional, minInclusive ---01, maxInclusive ---31
    uint8_t GetGDay() const { return m_GDay; }
    void SetGDay(uint8_t value) {
        m_GDay = value;
        m_bValidGDay = true;
    }
    bool IsValidGDay() const { return m_bValidGDay; }
    void SetValidGDay(bool bValid) { m_bValidGDay = bValid; }
    // Date: xs:date, optional, minInclusive -9999-01-01, maxInclusive 9999-12-31
    const OrvexXml::CDateTime& GetDate() const { return m_Date; }
    void SetDate(const OrvexXml::CDateTime& value) {
        m_Date = value;
        m_bValidDate = true;
    }
    bool IsValidDate() const { return m_bValidDate; }
    void SetValidDate(bool bValid) { m_bValidDate = bValid; }
    // DateTime: xs:dateTime, optional, minInclusive -9999-01-01T00:00:00, maxInclusive 9999-12-31T23:59:59.999999999
    const OrvexXml::CDateTime& GetDateTime() const { return m_DateTime; }
    void SetDateTime(const OrvexXml::CDateTime& value) {
        m_DateTime = value;
        m_bValidDateTime = true;
    }
    bool IsValidDateTime() const { return m_bValidDateTime; }
    void SetValidDateTime(bool bValid) { m_bValidDateTime = bValid; }
    // Time: xs:time, optional, minInclusive 00:00:00, maxInclusive 23:59:59.999999999
    const OrvexXml::CDateTime& GetTime() const { return m_Time; }
    void SetTime(const OrvexXml::CDateTime& value) {
        m_Time = value;
        m_bValidTime = true;
    }
    bool IsValidTime() const { return m_bValidTime; }
    void SetValidTime(bool bValid) { m_bValidTime = bValid; }
    // Char: char, optional
    char GetChar() const { return m_Char; }
    void SetChar(char value) {
        m_Char = value;
        m_bValidChar = true;
    }
    bool IsValidChar() const { return m_bValidChar; }
    void SetValidChar(bool bValid) { m_bValidChar = bValid; }
    // String: xs:string, optional, pattern "[ -~]*", maxLength 64
    const std::string& GetString() const { return m_String; }
    void SetString(const std::string& value) {
        m_String = value;
        m_bValidString = true;
    }
    bool IsValidString() const { return m_bValidString; }
    void SetValidString(bool bValid) { m_bValidString = bValid; }
    // Boolean: xs:boolean, optional
    bool GetBoolean() const { return m_Boolean; }
    void SetBoolean(bool value) {
        m_Boolean = value;
        m_bValidBoolean = true;
    }
    bool IsValidBoolean() const { return m_bValidBoolean; }
    void SetValidBoolean(bool bValid) { m_bValidBoolean = bValid; }
    // Decimal: xs:decimal, optional, minInclusive -10, maxInclusive 10, totalDigits 30, fractionDigits 30
    const OrvexXml::CDecimal& GetDecimal() const { return m_Decimal; }
    void SetDecimal(const OrvexXml::CDecimal& value) {
        m_Decimal = value;
        m_bValidDecimal = true;
    }
    bool IsValidDecimal() const { return m_bValidDecimal; }
    void SetValidDecimal(bool bValid) { m_bValidDecimal = bValid; }
    // Integer: xs:integer, optional, totalDigits 320
    const OrvexXml::CBigInteger& GetInteger() const { return m_Integer; }
    void SetInteger(const OrvexXml::CBigInteger& value) {
        m_Integer = value;
        m_bValidInteger = true;
    }
    bool IsValidInteger() const { return m_bValidInteger; }
    void SetValidInteger(bool bValid) { m_bValidInteger = bValid; }
    // HexBinaryList: xs:hexBinary, 0 to unbounded, maxLength 16
    OrvexXml::ChexBinaryCol& GetHexBinaryList() { return *m_HexBinaryList; }
    // Base64BinaryList: xs:base64Binary, 0 to unbounded, maxLength 64
    OrvexXml::Cbase64BinaryCol& GetBase64BinaryList() { return *m_Base64BinaryList; }
    // ByteList: xs:byte, 0 to unbounded, minInclusive -128, maxInclusive 127
    OrvexXml::Ci1Col& GetByteList() { return *m_ByteList; }
    // ShortList: xs:short, 0 to unbounded, minInclusive -32768, maxInclusive 32767
    OrvexXml::Ci2Col& GetShortList() { return *m_ShortList; }
    // IntList: xs:int, 0 to unbounded, minInclusive -2147483648, maxInclusive 2147483647
    OrvexXml::Ci4Col& GetIntList() { return *m_IntList; }
    // LongList: xs:long, 0 to unbounded, minInclusive -9223372036854775808, maxInclusive 9223372036854775807
    OrvexXml::Ci8Col& GetLongList() { return *m_LongList; }
    // UnsignedByteList: xs:unsignedByte, 0 to unbounded, maxInclusive 255
    OrvexXml::Cui1Col& GetUnsignedByteList() { return *m_UnsignedByteList; }
    // UnsignedShortList: xs:unsignedShort, 0 to unbounded, maxInclusive 65535
    OrvexXml::Cui2Col& GetUnsignedShortList() { return *m_UnsignedShortList; }
    // UnsignedIntList: xs:unsignedInt, 0 to unbounded, maxInclusive 4294967295
    OrvexXml::Cui4Col& GetUnsignedIntList() { return *m_UnsignedIntList; }
    // UnsignedLongList: xs:unsignedLong, 0 to unbounded, maxInclusive 18446744073709551615
    OrvexXml::Cui8Col& GetUnsignedLongList() { return *m_UnsignedLongList; }
    // FloatList: xs:float, 0 to unbounded
    OrvexXml::Cr4Col& GetFloatList() { return *m_FloatList; }
    // DoubleList: xs:double, 0 to unbounded, written with the format "%.2f"
    OrvexXml::Cr8Col& GetDoubleList() { return *m_DoubleList; }
    // DurationList: xs:duration, 0 to unbounded, minInclusive -P10000Y, maxInclusive P10000Y
    OrvexXml::CdurationCol& GetDurationList() { return *m_DurationList; }
    // GYearMonthList: xs:gYearMonth, 0 to unbounded, minInclusive -9999-01, maxInclusive 9999-12
    OrvexXml::CyearMonthCol& GetGYearMonthList() { return *m_GYearMonthList; }
    // GMonthDayList: xs:gMonthDay, 0 to unbounded, minInclusive --01-02, maxInclusive --12-31
    OrvexXml::CmonthDayCol& GetGMonthDayList() { return *m_GMonthDayList; }
    // GYearList: xs:gYear, 0 to unbounded, minInclusive 0001
    OrvexXml::CyearCol& GetGYearList() { return *m_GYearList; }
    // GMonthList: xs:gMonth, 0 to unbounded, minInclusive --01, maxInclusive --12
    OrvexXml::CmonthCol& GetGMonthList() { return *m_GMonthList; }
    // GDayList: xs:gDay, 0 to unbounded, minInclusive ---01, maxInclusive ---31
    OrvexXml::CdayCol& GetGDayList() { return *m_GDayList; }
    // DateList: xs:date, 0 to unbounded, minInclusive -9999-01-01, maxInclusive 9999-12-31
    OrvexXml::CdateCol& GetDateList() { return *m_DateList; }
    // DateTimeList: xs:dateTime, 0 to unbounded, minInclusive -9999-01-01T00:00:00, maxInclusive
    // 9999-12-31T23:59:59.999999999
    OrvexXml::CdatetimeCol& GetDateTimeList() { return *m_DateTimeList; }
    // TimeList: xs:time, 0 to unbounded, minInclusive 00:00:00, maxInclusive 23:59:59.999999999
    OrvexXml::CtimeCol& GetTimeList() { return *m_TimeList; }
    // StringList: xs:string, 0 to unbounded, pattern "[ -~]*", maxLength 64
    OrvexXml::CstringCol& GetStringList() { return *m_StringList; }
    // BooleanList: xs:boolean, 0 to unbounded
    OrvexXml::CbooleanCol& GetBooleanList() { return *m_BooleanList; }
    // DecimalList: xs:decimal, 0 to unbounded, minInclusive -10, maxInclusive 10, totalDigits 30, fractionDigits 30
    OrvexXml::CdecimalCol& GetDecimalList() { return *m_DecimalList; }
    // IntegerList: xs:integer, 0 to unbounded, totalDigits 320
    OrvexXml::CintegerCol& GetIntegerList() { return *m_IntegerList; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:orvex:samples:alltypes"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:orvex:samples:alltypes"; }

private:
    CAllTypes(const CAllTypes&) = delete;
    CAllTypes& operator=(const CAllTypes&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    OrvexXml::CBinaryData m_HexBinary;
    bool m_bValidHexBinary;
    OrvexXml::CBinaryData m_Base64Binary;
    bool m_bValidBase64Binary;
    char m_Byte;
    bool m_bValidByte;
    int16_t m_Short;
    bool m_bValidShort;
    int32_t m_Int;
    bool m_bValidInt;
    int64_t m_Long;
    bool m_bValidLong;
    uint8_t m_UnsignedByte;
    bool m_bValidUnsignedByte;
    uint16_t m_UnsignedShort;
    bool m_bValidUnsignedShort;
    uint32_t m_UnsignedInt;
    bool m_bValidUnsignedInt;
    uint64_t m_UnsignedLong;
    bool m_bValidUnsignedLong;
    float m_Float;
    bool m_bValidFloat;
    double m_Double;
    bool m_bValidDouble;
    OrvexXml::CDateTimeSpan m_Duration;
    bool m_bValidDuration;
    OrvexXml::CDateTime m_GYearMonth;
    bool m_bValidGYearMonth;
    OrvexXml::CDateTime m_GMonthDay;
    bool m_bValidGMonthDay;
    uint16_t m_GYear;
    bool m_bValidGYear;
    uint8_t m_GMonth;
    bool m_bValidGMonth;
    uint8_t m_GDay;
    bool m_bValidGDay;
    OrvexXml::CDateTime m_Date;
    bool m_bValidDate;
    OrvexXml::CDateTime m_DateTime;
    bool m_bValidDateTime;
    OrvexXml::CDateTime m_Time;
    bool m_bValidTime;
    char m_Char;
    bool m_bValidChar;
    std::string m_String;
    bool m_bValidString;
    bool m_Boolean;
    bool m_bValidBoolean;
    OrvexXml::CDecimal m_Decimal;
    bool m_bValidDecimal;
    OrvexXml::CBigInteger m_Integer;
    bool m_bValidInteger;
    OrvexXml::CSmartPtr<OrvexXml::ChexBinaryCol> m_HexBinaryList;
    OrvexXml::CSmartPtr<OrvexXml::Cbase64BinaryCol> m_Base64BinaryList;
    OrvexXml::CSmartPtr<OrvexXml::Ci1Col> m_ByteList;
    OrvexXml::CSmartPtr<OrvexXml::Ci2Col> m_ShortList;
    OrvexXml::CSmartPtr<OrvexXml::Ci4Col> m_IntList;
    OrvexXml::CSmartPtr<OrvexXml::Ci8Col> m_LongList;
    OrvexXml::CSmartPtr<OrvexXml::Cui1Col> m_UnsignedByteList;
    OrvexXml::CSmartPtr<OrvexXml::Cui2Col> m_UnsignedShortList;
    OrvexXml::CSmartPtr<OrvexXml::Cui4Col> m_UnsignedIntList;
    OrvexXml::CSmartPtr<OrvexXml::Cui8Col> m_UnsignedLongList;
    OrvexXml::CSmartPtr<OrvexXml::Cr4Col> m_FloatList;
    OrvexXml::CSmartPtr<OrvexXml::Cr8Col> m_DoubleList;
    OrvexXml::CSmartPtr<OrvexXml::CdurationCol> m_DurationList;
    OrvexXml::CSmartPtr<OrvexXml::CyearMonthCol> m_GYearMonthList;
    OrvexXml::CSmartPtr<OrvexXml::CmonthDayCol> m_GMonthDayList;
    OrvexXml::CSmartPtr<OrvexXml::CyearCol> m_GYearList;
    OrvexXml::CSmartPtr<OrvexXml::CmonthCol> m_GMonthList;
    OrvexXml::CSmartPtr<OrvexXml::CdayCol> m_GDayList;
    OrvexXml::CSmartPtr<OrvexXml::CdateCol> m_DateList;
    OrvexXml::CSmartPtr<OrvexXml::CdatetimeCol> m_DateTimeList;
    OrvexXml::CSmartPtr<OrvexXml::CtimeCol> m_TimeList;
    OrvexXml::CSmartPtr<OrvexXml::CstringCol> m_StringList;
    OrvexXml::CSmartPtr<OrvexXml::CbooleanCol> m_BooleanList;
    OrvexXml::CSmartPtr<OrvexXml::CdecimalCol> m_DecimalList;
    OrvexXml::CSmartPtr<OrvexXml::CintegerCol> m_IntegerList;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
