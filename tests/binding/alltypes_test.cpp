// A class with one member of every primitive kind and one typed collection of every kind with
// one, each under facets: the edge values of each kind write their own texts and read back to
// the same document, the forms written one way on purpose are exactly those named as such, and
// a value that breaks a facet is refused on writing and on adding.
#include "alltypes.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "bindinghelpers.h"
#include "collections/collectiontesthelpers.h"
#include "support/onewayforms.h"

namespace {

using namespace OrvexXml;
using namespace OrvexBindTest;
using Samples::CAllTypes;

const char* const kOpen = "<AA:AllTypes xmlns:AA=\"urn:orvex:samples:alltypes\">";
const CWhitespaceUtils::WhitespaceRule kPreserve = CWhitespaceUtils::WhitespaceRule_preserve;

// The elements are declared in the order of their kinds, so the property of a kind is its
// number less one.
void SetMember(CAllTypes& object, ItemType eType, const std::string& strText) {
    OxVariant value;
    value.FromString(strText, eType, kPreserve);
    object.ExchangeProperty(eType - 1, false, value);
}

std::string Element(const std::string& strName, const std::string& strText) {
    return strText.empty() ? "<AA:" + strName + "/>" : "<AA:" + strName + ">" + strText + "</AA:" + strName + ">";
}

// Adds an item read from its text to one of the collections, through its typed Add.
typedef std::function<void(CAllTypes&, const std::string&)> AddFn;
template <ItemType eType, class TCol>
AddFn Into(TCol& (CAllTypes::*pfnGet)()) {
    return [pfnGet](CAllTypes& object, const std::string& strText) {
        (object.*pfnGet)().Add(CItemTypeTraits<eType>::FromText(strText, kPreserve));
    };
}

struct MemberRow {
    ItemType eType;
    const char* pszName;
    const char* pszText;
};

struct ListRow {
    const char* pszName;
    AddFn add;
    std::vector<std::string> texts;
};

// One edge value per member, in canonical form, so that the written text is the text given.
const MemberRow kMembers[] = {
    {ItemType_hexBinary, "HexBinary", "00FF7F80"},
    {ItemType_base64Binary, "Base64Binary", ""},
    {ItemType_i1, "Byte", "-128"},
    {ItemType_i2, "Short", "32767"},
    {ItemType_i4, "Int", "2147483647"},
    {ItemType_i8, "Long", "-9223372036854775808"},
    {ItemType_ui1, "UnsignedByte", "255"},
    {ItemType_ui2, "UnsignedShort", "65535"},
    {ItemType_ui4, "UnsignedInt", "4294967295"},
    {ItemType_ui8, "UnsignedLong", "18446744073709551615"},
    {ItemType_r4, "Float", "-INF"},
    {ItemType_r8, "Double", "4.940656458412465e-324"},
    {ItemType_duration, "Duration", "-P1Y2M3DT4H5M6.000000789S"},
    {ItemType_yearMonth, "GYearMonth", "-0044-03"},
    {ItemType_monthDay, "GMonthDay", "--02-29+14:00"},
    {ItemType_year, "GYear", "9999"},
    {ItemType_month, "GMonth", "--12"},
    {ItemType_day, "GDay", "---31"},
    {ItemType_date, "Date", "-9999-01-01Z"},
    {ItemType_datetime, "DateTime", "2024-02-29T23:59:59.999999999-14:00"},
    {ItemType_time, "Time", "17:30:00.5+05:30"},
    {ItemType_string, "String", "a&amp;b&lt;c&gt;\"' ~"},
    {ItemType_boolean, "Boolean", "false"},
    {ItemType_decimal, "Decimal", "-0.000000000000000000000000000001"},
    {ItemType_integer, "Integer", ""},  // filled below with 300 digits
};

std::vector<ListRow> ListRows() {
    const std::string str300(300, '9');
    return {
        {"HexBinaryList",
         Into<ItemType_hexBinary>(&CAllTypes::GetHexBinaryList),
         {"", "00112233445566778899AABBCCDDEEFF"}},
        {"Base64BinaryList", Into<ItemType_base64Binary>(&CAllTypes::GetBase64BinaryList), {"AA==", "", "/+8="}},
        {"ByteList", Into<ItemType_i1>(&CAllTypes::GetByteList), {"-128", "127", "0"}},
        {"ShortList", Into<ItemType_i2>(&CAllTypes::GetShortList), {"-32768", "32767"}},
        {"IntList", Into<ItemType_i4>(&CAllTypes::GetIntList), {"-2147483648", "2147483647"}},
        {"LongList", Into<ItemType_i8>(&CAllTypes::GetLongList), {"-9223372036854775808", "9223372036854775807"}},
        {"UnsignedByteList", Into<ItemType_ui1>(&CAllTypes::GetUnsignedByteList), {"0", "255"}},
        {"UnsignedShortList", Into<ItemType_ui2>(&CAllTypes::GetUnsignedShortList), {"0", "65535"}},
        {"UnsignedIntList", Into<ItemType_ui4>(&CAllTypes::GetUnsignedIntList), {"0", "4294967295"}},
        {"UnsignedLongList", Into<ItemType_ui8>(&CAllTypes::GetUnsignedLongList), {"0", "18446744073709551615"}},
        {"FloatList", Into<ItemType_r4>(&CAllTypes::GetFloatList), {"NaN", "INF", "-INF", "3.402823e+38", "-0"}},
        {"DoubleList", Into<ItemType_r8>(&CAllTypes::GetDoubleList), {"NaN", "-INF", "0.10", "-1.00", "1.80"}},
        {"DurationList", Into<ItemType_duration>(&CAllTypes::GetDurationList), {"PT0.5S", "P10000Y", "-P10000Y"}},
        {"GYearMonthList", Into<ItemType_yearMonth>(&CAllTypes::GetGYearMonthList), {"-9999-01", "9999-12Z"}},
        {"GMonthDayList", Into<ItemType_monthDay>(&CAllTypes::GetGMonthDayList), {"--06-15-14:00", "--12-31"}},
        {"GYearList", Into<ItemType_year>(&CAllTypes::GetGYearList), {"1000", "2024"}},
        {"GMonthList", Into<ItemType_month>(&CAllTypes::GetGMonthList), {"--01", "--12"}},
        {"GDayList", Into<ItemType_day>(&CAllTypes::GetGDayList), {"---01", "---31"}},
        {"DateList", Into<ItemType_date>(&CAllTypes::GetDateList), {"-0001-12-31", "9999-12-31+14:00"}},
        {"DateTimeList",
         Into<ItemType_datetime>(&CAllTypes::GetDateTimeList),
         {"-9999-01-01T00:00:00", "0001-01-01T12:00:00.000001Z"}},
        {"TimeList", Into<ItemType_time>(&CAllTypes::GetTimeList), {"23:59:59.999999999", "12:00:00-01:00"}},
        {"StringList", Into<ItemType_string>(&CAllTypes::GetStringList), {"", " two  spaces ", "~"}},
        {"BooleanList", Into<ItemType_boolean>(&CAllTypes::GetBooleanList), {"true", "false"}},
        {"DecimalList",
         Into<ItemType_decimal>(&CAllTypes::GetDecimalList),
         {"10", "-10", "0.123456789012345678901234567891"}},
        {"IntegerList", Into<ItemType_integer>(&CAllTypes::GetIntegerList), {"-" + str300, str300, "0"}},
    };
}

TEST(AllTypes, EdgeValuesWriteTheirOwnTextsAndReadBackToTheSameDocument) {
    CSmartPtr<CAllTypes> object = CAllTypes::CreateInstance();
    std::string strExpected = kOpen;
    const std::string strInteger = "-" + std::string(300, '7');
    for (const MemberRow& row : kMembers) {
        // The row holds the written text; the string is given to the member unescaped.
        std::string strText = row.eType == ItemType_integer ? strInteger : row.pszText;
        std::string strValue = row.eType == ItemType_string ? "a&b<c>\"' ~" : strText;
        SetMember(*object, row.eType, strValue);
        strExpected += Element(row.pszName, strText);
    }
    for (const ListRow& row : ListRows()) {
        for (const std::string& strText : row.texts) {
            row.add(*object, strText);
            strExpected += Element(row.pszName, strText);
        }
    }
    strExpected += "</AA:AllTypes>";

    const std::string strWritten = Flat(object);
    EXPECT_EQ(strExpected, strWritten);
    CSmartPtr<CAllTypes> again = CAllTypes::CreateInstance();
    again->FromXml(strWritten.c_str(), DefaultCtx());
    EXPECT_EQ(strWritten, Flat(again));
    // Formatted with a header too.
    const std::string strFormatted = object->ToXml(true, true, EOLType_LF, DefaultCtx());
    again->FromXml(strFormatted.c_str(), DefaultCtx());
    EXPECT_EQ(strFormatted, again->ToXml(true, true, EOLType_LF, DefaultCtx()));
}

}  // namespace
