// Generated class for the element AllTypes (namespace urn:orvex:samples:alltypes): one optional
// element of each primitive kind and one repeating element of each kind with a typed collection,
// each under facets.
#include "alltypes.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);
static const char* const NS = "urn:orvex:samples:alltypes";

CMetaDataHolder CAllTypes::ms_metaData;

enum {
    Prop_HexBinary = 0,
    Prop_Base64Binary,
    Prop_Byte,
    Prop_Short,
    Prop_Int,
    Prop_Long,
    Prop_UnsignedByte,
    Prop_UnsignedShort,
    Prop_UnsignedInt,
    Prop_UnsignedLong,
    Prop_Float,
    Prop_Double,
    Prop_Duration,
    Prop_GYearMonth,
    Prop_GMonthDay,
    Prop_GYear,
    Prop_GMonth,
    Prop_GDay,
    Prop_Date,
    Prop_DateTime,
    Prop_Time,
    Prop_Char,
    Prop_String,
    Prop_Boolean,
    Prop_Decimal,
    Prop_Integer,
    Prop_HexBinaryList,
    Prop_Base64BinaryList,
    Prop_ByteList,
    Prop_ShortList,
    Prop_IntList,
    Prop_LongList,
    Prop_UnsignedByteList,
    Prop_UnsignedShortList,
    Prop_UnsignedIntList,
    Prop_UnsignedLongList,
    Prop_FloatList,
    Prop_DoubleList,
    Prop_DurationList,
    Prop_GYearMonthList,
    Prop_GMonthDayList,
    Prop_GYearList,
    Prop_GMonthList,
    Prop_GDayList,
    Prop_DateList,
    Prop_DateTimeList,
    Prop_TimeList,
    Prop_StringList,
    Prop_BooleanList,
    Prop_DecimalList,
    Prop_IntegerList
};

void CAllTypes::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule collapse = CWhitespaceUtils::WhitespaceRule_collapse;
    const CWhitespaceUtils::WhitespaceRule preserve = CWhitespaceUtils::WhitespaceRule_preserve;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "AllTypes", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "HexBinary", NS, Prop_HexBinary, false, ItemType_hexBinary, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, 16, nullptr, nullptr, nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Base64Binary", NS, Prop_Base64Binary, false, ItemType_base64Binary, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, 64, nullptr, nullptr, nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Byte", NS, Prop_Byte, false, ItemType_i1, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "-128", "127", nullptr, nullptr, -1, 4, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Short", NS, Prop_Short, false, ItemType_i2, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "-32768", "32767", nullptr, nullptr, -1, 6, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Int", NS, Prop_Int, false, ItemType_i4, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, nullptr, "2147483647", "-2147483648", nullptr, -1, 11, -1), nullptr));
    builder.AddElement(
        new CElementInfoSeqPrimOpt("Long", NS, Prop_Long, false, ItemType_i8, nullptr, collapse,
                                   CPrimitiveRestrictions(nullptr, -1, -1, "-9223372036854775808",
                                                          "9223372036854775806", nullptr, nullptr, -1, 20, -1),
                                   nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "UnsignedByte", NS, Prop_UnsignedByte, false, ItemType_ui1, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "0", "255", nullptr, nullptr, -1, 3, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "UnsignedShort", NS, Prop_UnsignedShort, false, ItemType_ui2, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "1", "65535", nullptr, nullptr, -1, 5, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "UnsignedInt", NS, Prop_UnsignedInt, false, ItemType_ui4, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "0", "4294967295", nullptr, nullptr, -1, 10, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "UnsignedLong", NS, Prop_UnsignedLong, false, ItemType_ui8, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "0", "18446744073709551615", nullptr, nullptr, -1, 20, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Float", NS, Prop_Float, false, ItemType_r4, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "-INF", "INF", nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Double", NS, Prop_Double, false, ItemType_r8, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "-INF", "INF", nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Duration", NS, Prop_Duration, false, ItemType_duration, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "-P10000Y", "P10000Y", nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "GYearMonth", NS, Prop_GYearMonth, false, ItemType_yearMonth, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "-9999-01", "9999-12", nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "GMonthDay", NS, Prop_GMonthDay, false, ItemType_monthDay, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "--01-02", "--12-31", nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "GYear", NS, Prop_GYear, false, ItemType_year, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "0001", nullptr, nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "GMonth", NS, Prop_GMonth, false, ItemType_month, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "--01", "--12", nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "GDay", NS, Prop_GDay, false, ItemType_day, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "---01", "---31", nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Date", NS, Prop_Date, false, ItemType_date, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "-9999-01-01", "9999-12-31", nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "DateTime", NS, Prop_DateTime, false, ItemType_datetime, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "-9999-01-01T00:00:00", "9999-12-31T23:59:59.999999999", nullptr,
                               nullptr, -1, -1, -1),
        nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Time", NS, Prop_Time, false, ItemType_time, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "00:00:00", "23:59:59.999999999", nullptr, nullptr, -1, -1, -1),
        nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Char", NS, Prop_Char, false, ItemType_char, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "String", NS, Prop_String, false, ItemType_string, nullptr, preserve,
        CPrimitiveRestrictions("[ -~]*", -1, 64, nullptr, nullptr, nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Boolean", NS, Prop_Boolean, false, ItemType_boolean, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Decimal", NS, Prop_Decimal, false, ItemType_decimal, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, "-10", "10", nullptr, nullptr, -1, 30, 30), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt(
        "Integer", NS, Prop_Integer, false, ItemType_integer, nullptr, collapse,
        CPrimitiveRestrictions(nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, 320, -1), nullptr));
    builder.AddElement(new CElementInfoSeqPrimCol("HexBinaryList", NS, Prop_HexBinaryList));
    builder.AddElement(new CElementInfoSeqPrimCol("Base64BinaryList", NS, Prop_Base64BinaryList));
    builder.AddElement(new CElementInfoSeqPrimCol("ByteList", NS, Prop_ByteList));
    builder.AddElement(new CElementInfoSeqPrimCol("ShortList", NS, Prop_ShortList));
    builder.AddElement(new CElementInfoSeqPrimCol("IntList", NS, Prop_IntList));
    builder.AddElement(new CElementInfoSeqPrimCol("LongList", NS, Prop_LongList));
    builder.AddElement(new CElementInfoSeqPrimCol("UnsignedByteList", NS, Prop_UnsignedByteList));
    builder.AddElement(new CElementInfoSeqPrimCol("UnsignedShortList", NS, Prop_UnsignedShortList));
    builder.AddElement(new CElementInfoSeqPrimCol("UnsignedIntList", NS, Prop_UnsignedIntList));
    builder.AddElement(new CElementInfoSeqPrimCol("UnsignedLongList", NS, Prop_UnsignedLongList));
    builder.AddElement(new CElementInfoSeqPrimCol("FloatList", NS, Prop_FloatList));
    builder.AddElement(new CElementInfoSeqPrimCol("DoubleList", NS, Prop_DoubleList));
    builder.AddElement(new CElementInfoSeqPrimCol("DurationList", NS, Prop_DurationList));
    builder.AddElement(new CElementInfoSeqPrimCol("GYearMonthList", NS, Prop_GYearMonthList));
    builder.AddElement(new CElementInfoSeqPrimCol("GMonthDayList", NS, Prop_GMonthDayList));
    builder.AddElement(new CElementInfoSeqPrimCol("GYearList", NS, Prop_GYearList));
    builder.AddElement(new CElementInfoSeqPrimCol("GMonthList", NS, Prop_GMonthList));
    builder.AddElement(new CElementInfoSeqPrimCol("GDayList", NS, Prop_GDayList));
    builder.AddElement(new CElementInfoSeqPrimCol("DateList", NS, Prop_DateList));
    builder.AddElement(new CElementInfoSeqPrimCol("DateTimeList", NS, Prop_DateTimeList));
    builder.AddElement(new CElementInfoSeqPrimCol("TimeList", NS, Prop_TimeList));
    builder.AddElement(new CElementInfoSeqPrimCol("StringList", NS, Prop_StringList));
    builder.AddElement(new CElementInfoSeqPrimCol("BooleanList", NS, Prop_BooleanList));
    builder.AddElement(new CElementInfoSeqPrimCol("DecimalList", NS, Prop_DecimalList));
    builder.AddElement(new CElementInfoSeqPrimCol("IntegerList", NS, Prop_IntegerList));
}

CAllTypes::CAllTypes() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("AllTypes");
    const CWhitespaceUtils::WhitespaceRule collapse = CWhitespaceUtils::WhitespaceRule_collapse;
    const CWhitespaceUtils::WhitespaceRule preserve = CWhitespaceUtils::WhitespaceRule_preserve;
    m_HexBinaryList = new ChexBinaryCol("HexBinaryList", NS, 0, -1, nullptr, -1, 16, nullptr, nullptr, nullptr, nullptr,
                                        -1, -1, -1, collapse, nullptr);
    m_Base64BinaryList = new Cbase64BinaryCol("Base64BinaryList", NS, 0, -1, nullptr, -1, 64, nullptr, nullptr, nullptr,
                                              nullptr, -1, -1, -1, collapse, nullptr);
    m_ByteList = new Ci1Col("ByteList", NS, 0, -1, nullptr, -1, -1, "-128", "127", nullptr, nullptr, -1, -1, -1,
                            collapse, nullptr);
    m_ShortList = new Ci2Col("ShortList", NS, 0, -1, nullptr, -1, -1, "-32768", "32767", nullptr, nullptr, -1, -1, -1,
                             collapse, nullptr);
    m_IntList = new Ci4Col("IntList", NS, 0, -1, nullptr, -1, -1, "-2147483648", "2147483647", nullptr, nullptr, -1, -1,
                           -1, collapse, nullptr);
    m_LongList = new Ci8Col("LongList", NS, 0, -1, nullptr, -1, -1, "-9223372036854775808", "9223372036854775807",
                            nullptr, nullptr, -1, -1, -1, collapse, nullptr);
    m_UnsignedByteList = new Cui1Col("UnsignedByteList", NS, 0, -1, nullptr, -1, -1, nullptr, "255", nullptr, nullptr,
                                     -1, -1, -1, collapse, nullptr);
    m_UnsignedShortList = new Cui2Col("UnsignedShortList", NS, 0, -1, nullptr, -1, -1, nullptr, "65535", nullptr,
                                      nullptr, -1, -1, -1, collapse, nullptr);
    m_UnsignedIntList = new Cui4Col("UnsignedIntList", NS, 0, -1, nullptr, -1, -1, nullptr, "4294967295", nullptr,
                                    nullptr, -1, -1, -1, collapse, nullptr);
    m_UnsignedLongList = new Cui8Col("UnsignedLongList", NS, 0, -1, nullptr, -1, -1, nullptr, "18446744073709551615",
                                     nullptr, nullptr, -1, -1, -1, collapse, nullptr);
    m_FloatList = new Cr4Col("FloatList", NS, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                             collapse, nullptr);
    m_DoubleList = new Cr8Col("DoubleList", NS, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                              collapse, "%.2f");
    m_DurationList = new CdurationCol("DurationList", NS, 0, -1, nullptr, -1, -1, "-P10000Y", "P10000Y", nullptr,
                                      nullptr, -1, -1, -1, collapse, nullptr);
    m_GYearMonthList = new CyearMonthCol("GYearMonthList", NS, 0, -1, nullptr, -1, -1, "-9999-01", "9999-12", nullptr,
                                         nullptr, -1, -1, -1, collapse, nullptr);
    m_GMonthDayList = new CmonthDayCol("GMonthDayList", NS, 0, -1, nullptr, -1, -1, "--01-02", "--12-31", nullptr,
                                       nullptr, -1, -1, -1, collapse, nullptr);
    m_GYearList = new CyearCol("GYearList", NS, 0, -1, nullptr, -1, -1, "0001", nullptr, nullptr, nullptr, -1, -1, -1,
                               collapse, nullptr);
    m_GMonthList = new CmonthCol("GMonthList", NS, 0, -1, nullptr, -1, -1, "--01", "--12", nullptr, nullptr, -1, -1, -1,
                                 collapse, nullptr);
    m_GDayList = new CdayCol("GDayList", NS, 0, -1, nullptr, -1, -1, "---01", "---31", nullptr, nullptr, -1, -1, -1,
                             collapse, nullptr);
    m_DateList = new CdateCol("DateList", NS, 0, -1, nullptr, -1, -1, "-9999-01-01", "9999-12-31", nullptr, nullptr, -1,
                              -1, -1, collapse, nullptr);
    m_DateTimeList = new CdatetimeCol("DateTimeList", NS, 0, -1, nullptr, -1, -1, "-9999-01-01T00:00:00",
                                      "9999-12-31T23:59:59.999999999", nullptr, nullptr, -1, -1, -1, collapse, nullptr);
    m_TimeList = new CtimeCol("TimeList", NS, 0, -1, nullptr, -1, -1, "00:00:00", "23:59:59.999999999", nullptr,
                              nullptr, -1, -1, -1, collapse, nullptr);
    m_StringList = new CstringCol("StringList", NS, 0, -1, "[ -~]*", -1, 64, nullptr, nullptr, nullptr, nullptr, -1, -1,
                                  -1, preserve, nullptr);
    m_BooleanList = new CbooleanCol("BooleanList", NS, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1,
                                    -1, -1, collapse, nullptr);
    m_DecimalList = new CdecimalCol("DecimalList", NS, 0, -1, nullptr, -1, -1, "-10", "10", nullptr, nullptr, -1, 30,
                                    30, collapse, nullptr);
    m_IntegerList = new CintegerCol("IntegerList", NS, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1,
                                    320, -1, collapse, nullptr);
    ResetToDefaults();
}

CAllTypes::~CAllTypes() {}

void CAllTypes::ResetToDefaults() {
    m_HexBinary = CBinaryData();
    m_bValidHexBinary = false;
    m_Base64Binary = CBinaryData();
    m_bValidBase64Binary = false;
    m_Byte = 0;
    m_bValidByte = false;
    m_Short = 0;
    m_bValidShort = false;
    m_Int = 0;
    m_bValidInt = false;
    m_Long = 0;
    m_bValidLong = false;
    m_UnsignedByte = 0;
    m_bValidUnsignedByte = false;
    m_UnsignedShort = 0;
    m_bValidUnsignedShort = false;
    m_UnsignedInt = 0;
    m_bValidUnsignedInt = false;
    m_UnsignedLong = 0;
    m_bValidUnsignedLong = false;
    m_Float = 0;
    m_bValidFloat = false;
    m_Double = 0;
    m_bValidDouble = false;
    m_Duration = CDateTimeSpan();
    m_bValidDuration = false;
    m_GYearMonth = CDateTime(CDateTime::dt_gYearMonth);
    m_bValidGYearMonth = false;
    m_GMonthDay = CDateTime(CDateTime::dt_gMonthDay);
    m_bValidGMonthDay = false;
    m_GYear = 0;
    m_bValidGYear = false;
    m_GMonth = 0;
    m_bValidGMonth = false;
    m_GDay = 0;
    m_bValidGDay = false;
    m_Date = CDateTime(CDateTime::dt_date);
    m_bValidDate = false;
    m_DateTime = CDateTime(CDateTime::dt_dateTime);
    m_bValidDateTime = false;
    m_Time = CDateTime(CDateTime::dt_time);
    m_bValidTime = false;
    m_Char = 0;
    m_bValidChar = false;
    m_String.clear();
    m_bValidString = false;
    m_Boolean = false;
    m_bValidBoolean = false;
    m_Decimal = CDecimal();
    m_bValidDecimal = false;
    m_Integer = CBigInteger();
    m_bValidInteger = false;
    m_HexBinaryList->Clear();
    m_Base64BinaryList->Clear();
    m_ByteList->Clear();
    m_ShortList->Clear();
    m_IntList->Clear();
    m_LongList->Clear();
    m_UnsignedByteList->Clear();
    m_UnsignedShortList->Clear();
    m_UnsignedIntList->Clear();
    m_UnsignedLongList->Clear();
    m_FloatList->Clear();
    m_DoubleList->Clear();
    m_DurationList->Clear();
    m_GYearMonthList->Clear();
    m_GMonthDayList->Clear();
    m_GYearList->Clear();
    m_GMonthList->Clear();
    m_GDayList->Clear();
    m_DateList->Clear();
    m_DateTimeList->Clear();
    m_TimeList->Clear();
    m_StringList->Clear();
    m_BooleanList->Clear();
    m_DecimalList->Clear();
    m_IntegerList->Clear();
}

CParentElementInfo* CAllTypes::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CAllTypes::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CAllTypes::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CAllTypes::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_HexBinary:
            if (bRead) {
                if (m_bValidHexBinary) value.SetHexBinary(m_HexBinary);
            } else {
                SetHexBinary(value.GetHexBinary());
            }
            break;
        case Prop_Base64Binary:
            if (bRead) {
                if (m_bValidBase64Binary) value.SetBase64Binary(m_Base64Binary);
            } else {
                SetBase64Binary(value.GetBase64Binary());
            }
            break;
        case Prop_Byte:
            if (bRead) {
                if (m_bValidByte) value.SetI1(m_Byte);
            } else {
                SetByte(value.GetI1());
            }
            break;
        case Prop_Short:
            if (bRead) {
                if (m_bValidShort) value.SetI2(m_Short);
            } else {
                SetShort(value.GetI2());
            }
            break;
        case Prop_Int:
            if (bRead) {
                if (m_bValidInt) value.SetI4(m_Int);
            } else {
                SetInt(value.GetI4());
            }
            break;
        case Prop_Long:
            if (bRead) {
                if (m_bValidLong) value.SetI8(m_Long);
            } else {
                SetLong(value.GetI8());
            }
            break;
        case Prop_UnsignedByte:
            if (bRead) {
                if (m_bValidUnsignedByte) value.SetUI1(m_UnsignedByte);
            } else {
                SetUnsignedByte(value.GetUI1());
            }
            break;
        case Prop_UnsignedShort:
            if (bRead) {
                if (m_bValidUnsignedShort) value.SetUI2(m_UnsignedShort);
            } else {
                SetUnsignedShort(value.GetUI2());
            }
            break;
        case Prop_UnsignedInt:
            if (bRead) {
                if (m_bValidUnsignedInt) value.SetUI4(m_UnsignedInt);
            } else {
                SetUnsignedInt(value.GetUI4());
            }
            break;
        case Prop_UnsignedLong:
            if (bRead) {
                if (m_bValidUnsignedLong) value.SetUI8(m_UnsignedLong);
            } else {
                SetUnsignedLong(value.GetUI8());
            }
            break;
        case Prop_Float:
            if (bRead) {
                if (m_bValidFloat) value.SetR4(m_Float);
            } else {
                SetFloat(value.GetR4());
            }
            break;
        case Prop_Double:
            if (bRead) {
                if (m_bValidDouble) value.SetR8(m_Double);
            } else {
                SetDouble(value.GetR8());
            }
            break;
        case Prop_Duration:
            if (bRead) {
                if (m_bValidDuration) value.SetDuration(m_Duration);
            } else {
                SetDuration(value.GetDuration());
            }
            break;
        case Prop_GYearMonth:
            if (bRead) {
                if (m_bValidGYearMonth) value.SetYearMonth(m_GYearMonth);
            } else {
                SetGYearMonth(value.GetYearMonth());
            }
            break;
        case Prop_GMonthDay:
            if (bRead) {
                if (m_bValidGMonthDay) value.SetMonthDay(m_GMonthDay);
            } else {
                SetGMonthDay(value.GetMonthDay());
            }
            break;
        case Prop_GYear:
            if (bRead) {
                if (m_bValidGYear) value.SetYear(m_GYear);
            } else {
                SetGYear(value.GetYear());
            }
            break;
        case Prop_GMonth:
            if (bRead) {
                if (m_bValidGMonth) value.SetMonth(m_GMonth);
            } else {
                SetGMonth(value.GetMonth());
            }
            break;
        case Prop_GDay:
            if (bRead) {
                if (m_bValidGDay) value.SetDay(m_GDay);
            } else {
                SetGDay(value.GetDay());
            }
            break;
        case Prop_Date:
            if (bRead) {
                if (m_bValidDate) value.SetDate(m_Date);
            } else {
                SetDate(value.GetDate());
            }
            break;
        case Prop_DateTime:
            if (bRead) {
                if (m_bValidDateTime) value.SetDateTime(m_DateTime);
            } else {
                SetDateTime(value.GetDateTime());
            }
            break;
        case Prop_Time:
            if (bRead) {
                if (m_bValidTime) value.SetTime(m_Time);
            } else {
                SetTime(value.GetTime());
            }
            break;
        case Prop_Char:
            if (bRead) {
                if (m_bValidChar) value.SetChar(m_Char);
            } else {
                SetChar(value.GetChar());
            }
            break;
        case Prop_String:
            if (bRead) {
                if (m_bValidString) value.SetString(m_String);
            } else {
                SetString(value.GetString());
            }
            break;
        case Prop_Boolean:
            if (bRead) {
                if (m_bValidBoolean) value.SetBoolean(m_Boolean);
            } else {
                SetBoolean(value.GetBoolean());
            }
            break;
        case Prop_Decimal:
            if (bRead) {
                if (m_bValidDecimal) value.SetDecimal(m_Decimal);
            } else {
                SetDecimal(value.GetDecimal());
            }
            break;
        case Prop_Integer:
            if (bRead) {
                if (m_bValidInteger) value.SetInteger(m_Integer);
            } else {
                SetInteger(value.GetInteger());
            }
            break;
        case Prop_HexBinaryList:
            if (bRead) value.SetXmlCollection(m_HexBinaryList);
            break;
        case Prop_Base64BinaryList:
            if (bRead) value.SetXmlCollection(m_Base64BinaryList);
            break;
        case Prop_ByteList:
            if (bRead) value.SetXmlCollection(m_ByteList);
            break;
        case Prop_ShortList:
            if (bRead) value.SetXmlCollection(m_ShortList);
            break;
        case Prop_IntList:
            if (bRead) value.SetXmlCollection(m_IntList);
            break;
        case Prop_LongList:
            if (bRead) value.SetXmlCollection(m_LongList);
            break;
        case Prop_UnsignedByteList:
            if (bRead) value.SetXmlCollection(m_UnsignedByteList);
            break;
        case Prop_UnsignedShortList:
            if (bRead) value.SetXmlCollection(m_UnsignedShortList);
            break;
        case Prop_UnsignedIntList:
            if (bRead) value.SetXmlCollection(m_UnsignedIntList);
            break;
        case Prop_UnsignedLongList:
            if (bRead) value.SetXmlCollection(m_UnsignedLongList);
            break;
        case Prop_FloatList:
            if (bRead) value.SetXmlCollection(m_FloatList);
            break;
        case Prop_DoubleList:
            if (bRead) value.SetXmlCollection(m_DoubleList);
            break;
        case Prop_DurationList:
            if (bRead) value.SetXmlCollection(m_DurationList);
            break;
        case Prop_GYearMonthList:
            if (bRead) value.SetXmlCollection(m_GYearMonthList);
            break;
        case Prop_GMonthDayList:
            if (bRead) value.SetXmlCollection(m_GMonthDayList);
            break;
        case Prop_GYearList:
            if (bRead) value.SetXmlCollection(m_GYearList);
            break;
        case Prop_GMonthList:
            if (bRead) value.SetXmlCollection(m_GMonthList);
            break;
        case Prop_GDayList:
            if (bRead) value.SetXmlCollection(m_GDayList);
            break;
        case Prop_DateList:
            if (bRead) value.SetXmlCollection(m_DateList);
            break;
        case Prop_DateTimeList:
            if (bRead) value.SetXmlCollection(m_DateTimeList);
            break;
        case Prop_TimeList:
            if (bRead) value.SetXmlCollection(m_TimeList);
            break;
        case Prop_StringList:
            if (bRead) value.SetXmlCollection(m_StringList);
            break;
        case Prop_BooleanList:
            if (bRead) value.SetXmlCollection(m_BooleanList);
            break;
        case Prop_DecimalList:
            if (bRead) value.SetXmlCollection(m_DecimalList);
            break;
        case Prop_IntegerList:
            if (bRead) value.SetXmlCollection(m_IntegerList);
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
