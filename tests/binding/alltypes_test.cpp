// A class with one member of every primitive kind and one typed collection of every kind with
// one, each under facets: the edge values of each kind write their own texts and read back to
// the same document, the forms written one way on purpose are exactly those named as such, and
// a value that breaks a facet is refused on writing and on adding.
#include "alltypes.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <typeinfo>
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

// One of the collections: AddAt of an item read from its text, through the typed AddAt, and
// the count.
struct ListAccess {
    std::function<void(CAllTypes&, int, const std::string&)> addAt;
    std::function<int(CAllTypes&)> count;
};
template <ItemType eType, class TCol>
ListAccess Into(TCol& (CAllTypes::*pfnGet)()) {
    return {[pfnGet](CAllTypes& object, int nIndex, const std::string& strText) {
                (object.*pfnGet)().AddAt(nIndex, CItemTypeTraits<eType>::FromText(strText, kPreserve));
            },
            [pfnGet](CAllTypes& object) { return (object.*pfnGet)().GetCount(); }};
}

struct MemberRow {
    ItemType eType;
    const char* pszName;
    const char* pszText;
};

struct ListRow {
    const char* pszName;
    ListAccess list;
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
            row.list.addAt(*object, row.list.count(*object), strText);
            strExpected += Element(row.pszName, strText);
        }
    }
    strExpected += "</AA:AllTypes>";

    const std::string strWritten = Flat(object);
    EXPECT_EQ(strExpected, strWritten);
    // None of it is a form written one way.
    EXPECT_FALSE(OrvexTest::HasCutFloatText(strWritten) || OrvexTest::HasOverflowingFloatText(strWritten) ||
                 OrvexTest::HasEmptyDurationText(strWritten));
    CSmartPtr<CAllTypes> again = CAllTypes::CreateInstance();
    again->FromXml(strWritten.c_str(), DefaultCtx());
    EXPECT_EQ(strWritten, Flat(again));
    // Formatted with a header too.
    const std::string strFormatted = object->ToXml(true, true, EOLType_LF, DefaultCtx());
    again->FromXml(strFormatted.c_str(), DefaultCtx());
    EXPECT_EQ(strFormatted, again->ToXml(true, true, EOLType_LF, DefaultCtx()));
}

ListRow ListNamed(const std::string& strName) {
    for (const ListRow& row : ListRows()) {
        if (strName == row.pszName) return row;
    }
    throw std::logic_error("no collection " + strName);
}

// Each form written one way on purpose, with the rule that names it: the object writes the
// text, the rule holds for it, and reading it back fails or gives another document.
TEST(AllTypes, FormsWrittenOneWayAreThoseTheirRulesName) {
    struct Row {
        const char* pszCase;
        std::function<void(CAllTypes&)> fill;
        const char* pszWritten;                                    // the element as written
        std::function<bool(CAllTypes&, const std::string&)> rule;  // on the object and its document
        const char* pszReadBack;  // the element as written again, or the refusal of reading it
    };
    using OrvexTest::HasCutFloatText;
    using OrvexTest::HasEmptyDurationText;
    using OrvexTest::HasOverflowingFloatText;
    using OrvexTest::IsUnreadableYear;
    const Row rows[] = {
        {"year below 1000", [](CAllTypes& o) { o.SetGYear(999); }, "<AA:GYear>999</AA:GYear>",
         [](CAllTypes& o, const std::string&) { return IsUnreadableYear(o.GetGYear()); },
         "Failed to process the element.\nPath: /AA:AllTypes\nInvalid XSD Date [999] expected "
         "CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {"negative year wrapped", [](CAllTypes& o) { SetMember(o, ItemType_year, "-0044"); },
         "<AA:GYear>65492</AA:GYear>", [](CAllTypes& o, const std::string&) { return IsUnreadableYear(o.GetGYear()); },
         "Failed to process the element.\nPath: /AA:AllTypes\nInvalid XSD Date [65492] expected "
         "CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {"all-zero duration", [](CAllTypes& o) { SetMember(o, ItemType_duration, "-PT0S"); },
         "<AA:Duration>-P</AA:Duration>",
         [](CAllTypes&, const std::string& strDoc) { return HasEmptyDurationText(strDoc); },
         "Failed to process the element.\nPath: /AA:AllTypes\nInvalid XSD Duration [-P] expected "
         "[-]P[nY][nM][nD][T[nH][nM][nS.ff]]"},
        {"largest double", [](CAllTypes& o) { o.SetDouble(1.7976931348623157e308); },
         "<AA:Double>1.797693134862316e+308</AA:Double>",
         [](CAllTypes&, const std::string& strDoc) { return HasOverflowingFloatText(strDoc); },
         "<AA:Double>INF</AA:Double>"},
        {"%.2f past 47 characters", [](CAllTypes& o) { ListNamed("DoubleList").list.addAt(o, 0, "4.4e61"); },
         "<AA:DoubleList>44000000000000000627529338483176592262972319383</AA:DoubleList>",
         [](CAllTypes&, const std::string& strDoc) { return HasCutFloatText(strDoc); },
         "<AA:DoubleList>44000000000000000712272517764252458167063019520</AA:DoubleList>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pszCase);
        CSmartPtr<CAllTypes> object = CAllTypes::CreateInstance();
        row.fill(*object);
        const std::string strWritten = Flat(object);
        EXPECT_EQ(std::string(kOpen) + row.pszWritten + "</AA:AllTypes>", strWritten);
        EXPECT_TRUE(row.rule(*object, strWritten));
        CSmartPtr<CAllTypes> again = CAllTypes::CreateInstance();
        const std::string strRefusal = Thrown([&] { again->FromXml(strWritten.c_str(), DefaultCtx()); });
        if (strRefusal == "(no exception)")
            EXPECT_EQ(std::string(kOpen) + row.pszReadBack + "</AA:AllTypes>", Flat(again));
        else
            EXPECT_EQ(row.pszReadBack, strRefusal);
    }
}

// A value that breaks a facet is refused with the check's message: the number form for the
// sized integers up to 32 bits and the floats, the text form with a full stop for the rest. A
// member stops the writing; a collection refuses the AddAt and keeps its items.
TEST(AllTypes, ValueBreakingAFacetIsRefusedOnWritingAndOnAdding) {
    struct Row {
        const char* pszList;  // null: the member of the kind
        ItemType eType;
        std::string strText;
        std::string strMessage;
    };
    const std::string str17Bytes(34, 'A');
    const std::string str66Bytes(88, 'A');
    const std::string str321Digits(321, '1');
    const std::string str65Chars(65, 'x');
    const Row rows[] = {
        {nullptr, ItemType_i4, "-2147483648", "Invalid Value for Int [-2147483648]"},
        {nullptr, ItemType_ui2, "0", "Invalid Value for UnsignedShort [0]"},
        {nullptr, ItemType_r4, "NaN", "Invalid Value for Float [nan]"},
        {nullptr, ItemType_i8, "9223372036854775807", "Invalid Value for Long [9223372036854775807]."},
        {nullptr, ItemType_hexBinary, str17Bytes, "Invalid Value for HexBinary [" + str17Bytes + "]."},
        {nullptr, ItemType_string, "tab\there", "Invalid Value for String [tab\there]."},
        {nullptr, ItemType_string, str65Chars, "Invalid Value for String [" + str65Chars + "]."},
        {nullptr, ItemType_decimal, "10.1", "Invalid Value for Decimal [10.1]."},
        {nullptr, ItemType_integer, str321Digits, "Invalid Value for Integer [" + str321Digits + "]."},
        {nullptr, ItemType_duration, "P10000Y1D", "Invalid Value for Duration [P10000Y1D]."},
        {nullptr, ItemType_monthDay, "--01-01", "Invalid Value for GMonthDay [--01-01]."},
        // A zoned time against bounds without a zone: the bound is tried at +14:00 and -14:00,
        // so a time late in the day in UTC is above the last moment of the day.
        {nullptr, ItemType_time, "23:00:00Z", "Invalid Value for Time [23:00:00Z]."},
        {"HexBinaryList", ItemType_hexBinary, str17Bytes, "Invalid Value for HexBinaryList [" + str17Bytes + "]."},
        {"Base64BinaryList", ItemType_base64Binary, str66Bytes,
         "Invalid Value for Base64BinaryList [" + str66Bytes + "]."},
        {"StringList", ItemType_string, "tab\there", "Invalid Value for StringList [tab\there]."},
        {"DecimalList", ItemType_decimal, "1.000000000000000000000000000001",
         "Invalid Value for DecimalList [1.000000000000000000000000000001]."},
        {"IntegerList", ItemType_integer, "-" + str321Digits, "Invalid Value for IntegerList [-" + str321Digits + "]."},
        {"DurationList", ItemType_duration, "-P10000Y1D", "Invalid Value for DurationList [-P10000Y1D]."},
        {"GMonthDayList", ItemType_monthDay, "--01-01", "Invalid Value for GMonthDayList [--01-01]."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.strText);
        CSmartPtr<CAllTypes> object = CAllTypes::CreateInstance();
        if (!row.pszList) {
            SetMember(*object, row.eType, row.strText);
            EXPECT_EQ("Failed to convert the element [AllTypes] to XML\n" + row.strMessage,
                      Thrown([&] { Flat(object); }));
            continue;
        }
        const ListRow edges = ListNamed(row.pszList);
        const ListAccess& list = edges.list;
        list.addAt(*object, 0, edges.texts[0]);
        EXPECT_EQ(row.strMessage, Thrown([&] { list.addAt(*object, 0, row.strText); }));
        EXPECT_EQ(1, list.count(*object));
    }
}

// A char has no check, so the metadata that checks every value on writing refuses it; it
// stays unset in every other case here.
TEST(AllTypes, CharMemberRefusesWriting) {
    CSmartPtr<CAllTypes> object = CAllTypes::CreateInstance();
    object->SetChar('x');
    try {
        Flat(object);
        ADD_FAILURE() << "written";
    } catch (const COxException& e) {
        EXPECT_EQ("Failed to convert the element [AllTypes] to XML\nUnknown type [char].", e.GetFullMessage());
        EXPECT_EQ(typeid(COxInvalidValueException), typeid(Innermost(e)));
    }
}

// A date collection takes dates only: a time is refused before any listener hears of it.
TEST(AllTypes, DateCollectionRefusesATimeSilently) {
    CSmartPtr<CAllTypes> object = CAllTypes::CreateInstance();
    CdateCol& dates = object->GetDateList();
    dates.Add(CDateTime(2024, 2, 29));
    OrvexColTest::CEventRecorder recorder;
    dates.AddEventListener(&recorder);
    CDateTime time(CDateTime::dt_time);
    time.SetTime(12, 0, 0);
    EXPECT_COL_THROW(dates.AddAt(0, time), COxInvalidParamException,
                     "Dates added to this collection must be of type dt_date");
    EXPECT_EQ("", recorder.m_strLog);
    EXPECT_EQ(1, dates.GetCount());
    dates.RemoveEventListener(&recorder);
}

}  // namespace
