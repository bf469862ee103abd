#include "orvexxml/values/oxvariant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <typeinfo>

#include "expectthrow.h"
#include "orvexxml/binding/xmlobjectbase.h"
#include "orvexxml/values/binarydata.h"

using namespace OrvexXml;

namespace {

// Generated code announces its version before it builds objects; do the same so that the
// version check of the first object stays quiet.
const bool g_bRegistered = (Register(16, 1), true);

const CWhitespaceUtils::WhitespaceRule NONE = CWhitespaceUtils::WhitespaceRule_none;
const CWhitespaceUtils::WhitespaceRule COLLAPSE = CWhitespaceUtils::WhitespaceRule_collapse;

// The smallest object there is: counts its destructions.
class CCountedObject : public CXmlObjectBase {
public:
    explicit CCountedObject(int* pnDestroyed) : m_pnDestroyed(pnDestroyed) {}
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return std::string(); }

protected:
    ~CCountedObject() override { ++*m_pnDestroyed; }
    std::string GetTargetNamespace() const override { return std::string(); }
    void ToXml_Int(CXmlWriter*, bool, const char*, const CSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {
        return nullptr;
    }

private:
    int* m_pnDestroyed;
};

// The reference count of an object that is known to be held at least once.
OxLong RefCount(CXmlObjectBase* pObject) {
    pObject->AddRef();
    return pObject->Release();
}

CBinaryData Hex(const char* pszHex) {
    CBinaryData data;
    data.SetAsHexString(pszHex);
    return data;
}

// --- state and type names -------------------------------------------------------------------

TEST(OxVariantState, EmptyNilAndValid) {
    ASSERT_TRUE(g_bRegistered);
    OxVariant v;
    EXPECT_EQ(ItemType_invalid, v.GetTypeAsEnum());
    EXPECT_FALSE(v.IsNil());
    EXPECT_FALSE(v.IsValid());
    EXPECT_EQ(nullptr, v.m_pString);
    // Nil keeps the type and drops the value; a setter then clears the flag.
    v.SetString("x");
    v.SetNil();
    EXPECT_EQ(ItemType_string, v.GetTypeAsEnum());
    EXPECT_TRUE(v.IsNil());
    EXPECT_EQ(nullptr, v.m_pString);
    v.SetBoolean(true);
    EXPECT_FALSE(v.IsNil());
    EXPECT_EQ(ItemType_boolean, v.GetTypeAsEnum());
    // Clear and SetInvalid empty a typed variant, nil flag included.
    v.SetNil();
    v.Clear();
    EXPECT_FALSE(v.IsNil());
    EXPECT_FALSE(v.IsValid());
    v.SetString("abc");
    v.SetInvalid();
    EXPECT_EQ(ItemType_invalid, v.GetTypeAsEnum());
    EXPECT_EQ(nullptr, v.m_pString);

    // Nil without a type is valid; Clear returns at once for type 0, so the flag stays, and
    // the first setter keeps it too. A setter on a typed variant clears it.
    v.SetNil();
    EXPECT_TRUE(v.IsValid());
    v.Clear();
    EXPECT_TRUE(v.IsNil());
    v.SetI4(5);
    EXPECT_TRUE(v.IsNil());
    EXPECT_EQ(ItemType_i4, v.GetTypeAsEnum());
    EXPECT_EQ(5, v.GetI4());
    v.SetI4(6);
    EXPECT_FALSE(v.IsNil());
}

TEST(OxVariantType, NamesOfTypesOneToTwentySixOthersRefused) {
    const char* names[] = {nullptr,     "hexBinary", "base64Binary", "i1",      "i2",      "i4",     "i8",
                           "ui1",       "ui2",       "ui4",          "ui8",     "r4",      "r8",     "duration",
                           "yearMonth", "monthDay",  "year",         "month",   "day",     "date",   "datetime",
                           "time",      "char",      "string",       "boolean", "decimal", "integer"};
    OxVariant v;
    EXPECT_OX_THROW(v.GetType(), COxException, "Invalid Type 0");
    // Only the tag is needed for the name; a nil variant holds no value of any kind.
    v.m_isNil = true;
    for (int n = 1; n <= 28; ++n) {
        v.m_type = static_cast<ItemType>(n);
        if (n <= 26) {
            EXPECT_EQ(names[n], v.GetType()) << "type " << n;
        } else {
            EXPECT_OX_THROW(v.GetType(), COxException, "Invalid Type " + std::to_string(n));
        }
    }
    v.m_type = ItemType_invalid;
}

// --- the kinds with a value of their own ------------------------------------------------------

// Each row sets a kind through its setter and, where the kind has one, through FromString with
// the given text and rule, over a nil variant of another kind. Both give the kind and its text,
// and so does a copy, constructed or assigned over a variant that held something else.
TEST(OxVariantKinds, SetterFromStringTextAndCopyOfEveryKind) {
    const struct {
        void (*set)(OxVariant&);
        const char* pszText;
        CWhitespaceUtils::WhitespaceRule rule;
        ItemType type;
        const char* pszStored;
    } rows[] = {
        {[](OxVariant& v) { v.SetI1(static_cast<char>(-128)); }, "-128", NONE, ItemType_i1, "-128"},
        {[](OxVariant& v) { v.SetI2(-32768); }, "-32768", NONE, ItemType_i2, "-32768"},
        {[](OxVariant& v) { v.SetI4(INT32_MIN); }, " -2147483648 ", COLLAPSE, ItemType_i4, "-2147483648"},
        {[](OxVariant& v) { v.SetI8(INT64_MIN); }, "-9223372036854775808", NONE, ItemType_i8, "-9223372036854775808"},
        {[](OxVariant& v) { v.SetUI1(255); }, "255", NONE, ItemType_ui1, "255"},
        {[](OxVariant& v) { v.SetUI2(65535); }, "65535", NONE, ItemType_ui2, "65535"},
        {[](OxVariant& v) { v.SetUI4(4294967295u); }, "-1", NONE, ItemType_ui4, "4294967295"},
        {[](OxVariant& v) { v.SetUI8(UINT64_MAX); }, "18446744073709551615", NONE, ItemType_ui8,
         "18446744073709551615"},
        {[](OxVariant& v) { v.SetR4(1.5f); }, "1.5", NONE, ItemType_r4, "1.5"},
        {[](OxVariant& v) { v.SetR8(1e300); }, "1E300", NONE, ItemType_r8, "1e+300"},
        {[](OxVariant& v) { v.SetR8(std::nan("")); }, "-NAN", NONE, ItemType_r8, "NaN"},
        {[](OxVariant& v) { v.SetYear(99); }, nullptr, NONE, ItemType_year, "99"},
        {[](OxVariant& v) { v.SetMonth(3); }, nullptr, NONE, ItemType_month, "--03"},
        {[](OxVariant& v) { v.SetDay(3); }, nullptr, NONE, ItemType_day, "---03"},
        {[](OxVariant& v) { v.SetChar('z'); }, " z ", COLLAPSE, ItemType_char, "z"},
        {[](OxVariant& v) { v.SetChar('\0'); }, nullptr, NONE, ItemType_char, ""},
        {[](OxVariant& v) { v.SetBoolean(true); }, "TRUE", NONE, ItemType_boolean, "true"},
        {[](OxVariant& v) { v.SetBoolean(false); }, "0", NONE, ItemType_boolean, "false"},
        {[](OxVariant& v) { v.SetString(" as is\r\n"); }, " as is\r\n", NONE, ItemType_string, " as is\r\n"},
        {[](OxVariant& v) { v.SetString("two words"); }, "  two   words ", COLLAPSE, ItemType_string, "two words"},
        {[](OxVariant& v) { v.SetHexBinary(Hex("00ff1a")); }, " 00ff1A\r\n", COLLAPSE, ItemType_hexBinary, "00FF1A"},
        // The empty binary value is a value like any other; invalid base64 gives it too.
        {[](OxVariant& v) { v.SetHexBinary(CBinaryData()); }, "", NONE, ItemType_hexBinary, ""},
        {[](OxVariant& v) { v.SetBase64Binary(CBinaryData()); }, "Zm9v*", NONE, ItemType_base64Binary, ""},
        {[](OxVariant& v) { v.SetBase64Binary(Hex("00ff1a")); }, "AP8a", NONE, ItemType_base64Binary, "AP8a"},
        {[](OxVariant& v) { v.SetBase64Binary(CBinaryData("f")); }, "Zg", NONE, ItemType_base64Binary, "Zg=="},
        {[](OxVariant& v) { v.SetBase64Binary(CBinaryData("foobar")); }, "Zm9v\r\nYmFy", NONE, ItemType_base64Binary,
         "Zm9vYmFy"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszStored);
        OxVariant v;
        v.SetI8(-1);
        row.set(v);
        OxVariant read;
        read.SetString("former");
        read.SetNil();
        if (row.pszText) read.FromString(row.pszText, row.type, row.rule);
        OxVariant copy(v);
        OxVariant assigned;
        assigned.SetUI8(UINT64_MAX);
        assigned = v;
        for (const OxVariant* pVariant : {&v, &read, &copy, &assigned}) {
            if (pVariant == &read && !row.pszText) continue;
            EXPECT_EQ(row.type, pVariant->GetTypeAsEnum());
            EXPECT_FALSE(pVariant->IsNil());
            EXPECT_EQ(row.pszStored, pVariant->ToString(nullptr));
        }
    }
}

// Each getter reads the member its setter wrote; the limits fill every byte of it.
#define EXPECT_STORED(Set, Get, value) \
    v.Set(value);                      \
    EXPECT_EQ(value, v.Get())

TEST(OxVariantKinds, GettersGiveBackTheStoredValue) {
    OxVariant v;
    EXPECT_STORED(SetI1, GetI1, static_cast<char>(-128));
    EXPECT_STORED(SetI2, GetI2, static_cast<int16_t>(-32768));
    EXPECT_STORED(SetI4, GetI4, INT32_MIN);
    EXPECT_STORED(SetI8, GetI8, INT64_MIN);
    EXPECT_STORED(SetUI1, GetUI1, static_cast<uint8_t>(255));
    EXPECT_STORED(SetUI2, GetUI2, static_cast<uint16_t>(65535));
    EXPECT_STORED(SetUI4, GetUI4, 4294967295u);
    EXPECT_STORED(SetUI8, GetUI8, UINT64_MAX);
    EXPECT_STORED(SetR4, GetR4, 1.5f);
    EXPECT_STORED(SetR8, GetR8, -2.25);
    EXPECT_STORED(SetYear, GetYear, static_cast<uint16_t>(65535));
    EXPECT_STORED(SetMonth, GetMonth, static_cast<uint8_t>(255));
    EXPECT_STORED(SetDay, GetDay, static_cast<uint8_t>(255));
    EXPECT_STORED(SetChar, GetChar, '\xFF');
    EXPECT_STORED(SetBoolean, GetBoolean, true);
    EXPECT_STORED(SetHexBinary, GetHexBinary, Hex("00FF"));
    EXPECT_STORED(SetBase64Binary, GetBase64Binary, CBinaryData("abc"));
}

#undef EXPECT_STORED

TEST(OxVariantKinds, StringIsAnOwnedDeepCopy) {
    std::string text = "first";
    OxVariant v;
    v.SetString(text);
    text[0] = 'X';
    v.GetString()[0] = 'Y';
    OxVariant copy(v);
    EXPECT_NE(v.m_pString, copy.m_pString);
    v.SetString("second");
    EXPECT_EQ("first", copy.GetString());
    copy = v;
    EXPECT_NE(v.m_pString, copy.m_pString);
    EXPECT_EQ("second", copy.GetString());
    OxVariant& alias = v;
    v = alias;
    EXPECT_EQ("second", v.GetString());
}

TEST(OxVariantKinds, BinaryValueIsNeverChangedThroughAnotherHandle) {
    CBinaryData source("abc");
    OxVariant v;
    v.SetHexBinary(source);
    source[0] = 'X';
    source.Append('d');
    // What a getter gives is the caller's to change.
    CBinaryData got = v.GetHexBinary();
    got[1] = 'Y';
    // Setting the value the variant already holds.
    v.SetHexBinary(*v.m_pBinaryData);
    EXPECT_TRUE(v.GetHexBinary() == CBinaryData("abc"));

    v.SetBase64Binary(CBinaryData("abc"));
    OxVariant copy(v);
    OxVariant assigned;
    assigned.SetI4(5);
    assigned = v;
    ASSERT_NE(v.m_pBinaryData, copy.m_pBinaryData);
    ASSERT_NE(v.m_pBinaryData, assigned.m_pBinaryData);
    (*copy.m_pBinaryData)[0] = 'X';
    assigned.m_pBinaryData->Append('!');
    EXPECT_TRUE(v.GetBase64Binary() == CBinaryData("abc"));
    EXPECT_TRUE(copy.GetBase64Binary() == CBinaryData("Xbc"));
    EXPECT_TRUE(assigned.GetBase64Binary() == CBinaryData("abc!"));
}

// A nil variant has its type but no value: no pointer is left in its value bytes, also when
// it is copied over a variant whose inline bytes were not zero.
TEST(OxVariantCopy, NilCopiesTypeButNoValue) {
    OxVariant nilString;
    nilString.SetString("abc");
    nilString.SetNil();
    OxVariant nilHex;
    nilHex.SetHexBinary(CBinaryData("abc"));
    nilHex.SetNil();
    EXPECT_EQ(nullptr, nilHex.m_pBinaryData);
    EXPECT_EQ(0u, nilHex.GetHexBinary().GetLength());
    for (const OxVariant* pSource : {&nilString, &nilHex}) {
        SCOPED_TRACE(pSource->GetType());
        OxVariant copy(*pSource);
        OxVariant assigned;
        assigned.SetI8(-1);
        assigned = *pSource;
        for (const OxVariant* pCopy : {&copy, &assigned}) {
            EXPECT_EQ(pSource->GetTypeAsEnum(), pCopy->GetTypeAsEnum());
            EXPECT_TRUE(pCopy->IsNil());
            EXPECT_EQ(0u, pCopy->m_ullValue);
        }
    }
}

TEST(OxVariantCopy, UnknownTypeIsRefused) {
    OxVariant source;
    // 31 is beyond the enumerators yet a value the enum can hold.
    source.m_type = static_cast<ItemType>(31);
    OxVariant target;
    target.SetString("old");
    EXPECT_OX_THROW(target = source, COxException, "Unknown Type");
    // The target is left empty rather than half-copied.
    EXPECT_EQ(ItemType_invalid, target.GetTypeAsEnum());
    EXPECT_FALSE(target.IsNil());
    EXPECT_OX_THROW(OxVariant copy(source), COxException, "Unknown Type");
    source.m_type = ItemType_invalid;
}

// --- object references --------------------------------------------------------------------

TEST(OxVariantObject, HoldsOneCountedReference) {
    int nDestroyed = 0;
    CSmartPtr<CXmlObjectBase> spObject(new CCountedObject(&nDestroyed));
    ASSERT_EQ(1, RefCount(spObject));
    {
        OxVariant v;
        v.SetXmlObject(spObject);
        EXPECT_EQ(ItemType_XmlObjectBase, v.GetTypeAsEnum());
        EXPECT_EQ(2, RefCount(spObject));
        {
            OxVariant copy(v);
            OxVariant assigned;
            assigned = v;
            CSmartPtr<CXmlObjectBase> spGot = v.GetXmlObject();
            EXPECT_EQ(spObject.Get(), spGot.Get());
            EXPECT_EQ(5, RefCount(spObject));
        }
        EXPECT_EQ(2, RefCount(spObject));
        v.SetNil();
        EXPECT_EQ(ItemType_XmlObjectBase, v.GetTypeAsEnum());
        EXPECT_EQ(nullptr, v.m_pXmlObject);
        EXPECT_EQ(1, RefCount(spObject));
        v.SetXmlObject(spObject);
        EXPECT_EQ(2, RefCount(spObject));
    }
    EXPECT_EQ(1, RefCount(spObject));
    EXPECT_EQ(0, nDestroyed);
    spObject = nullptr;
    EXPECT_EQ(1, nDestroyed);

    // Null is a legal value, and copies as one.
    OxVariant v;
    v.SetXmlObject(nullptr);
    EXPECT_TRUE(v.IsValid());
    OxVariant copy(v);
    EXPECT_EQ(ItemType_XmlObjectBase, copy.GetTypeAsEnum());
    EXPECT_TRUE(copy.GetXmlObject().IsNull());
}

TEST(OxVariantObject, LastReferenceDestroysTheObjectExactlyOnce) {
    int nFirst = 0;
    int nSecond = 0;
    OxVariant v;
    v.SetXmlObject(new CCountedObject(&nFirst));
    // Setting the object the variant alone holds must not destroy it on the way.
    v.SetXmlObject(v.m_pXmlObject);
    EXPECT_EQ(0, nFirst);
    EXPECT_EQ(1, RefCount(v.m_pXmlObject));
    OxVariant copy(v);
    v.Clear();
    EXPECT_EQ(0, nFirst);
    copy.SetXmlObject(new CCountedObject(&nSecond));
    EXPECT_EQ(1, nFirst);
    copy = OxVariant();
    EXPECT_EQ(1, nSecond);
    EXPECT_FALSE(copy.IsValid());

    // A nil object copied over inline bytes holds no pointer, and clearing it releases nothing.
    OxVariant source;
    source.SetXmlObject(new CCountedObject(&nSecond));
    source.SetNil();
    EXPECT_EQ(2, nSecond);
    OxVariant target;
    target.SetUI8(0x0123456789ABCDEFull);
    target = source;
    EXPECT_EQ(ItemType_XmlObjectBase, target.GetTypeAsEnum());
    EXPECT_TRUE(target.IsNil());
    EXPECT_EQ(nullptr, target.m_pXmlObject);
    target.Clear();
    EXPECT_EQ(1, nFirst);
    EXPECT_EQ(2, nSecond);
}

// --- text ---------------------------------------------------------------------------------

TEST(OxVariantText, FormatReachesOnlyTheFloats) {
    OxVariant v;
    v.SetR4(3.14159f);
    EXPECT_EQ("3.14", v.ToString("%.2f"));
    EXPECT_EQ("3.14159", v.ToString(""));
    v.SetR8(0.1 + 0.2);
    EXPECT_EQ("0.300", v.ToString("%.3f"));
    v.SetR4(std::numeric_limits<float>::infinity());
    EXPECT_EQ("INF", v.ToString("%.2f"));
    v.SetI4(5);
    EXPECT_EQ("5", v.ToString("%.2f"));
    v.SetHexBinary(Hex("00FF1A"));
    EXPECT_EQ("00FF1A", v.ToString("%.2f"));
}

TEST(OxVariantText, KindsWithoutTextAreRefused) {
    OxVariant v;
    EXPECT_OX_THROW(v.ToString(nullptr), COxException, "Invalid Type 0 to convert to string");
    v.SetXmlObject(nullptr);
    EXPECT_OX_THROW(v.ToString(nullptr), COxException, "Invalid Type 27 to convert to string");
}

TEST(OxVariantText, RefusedTextKeepsFormerContent) {
    const struct {
        std::string text;
        ItemType type;
        CWhitespaceUtils::WhitespaceRule rule;
        const std::type_info* pException;
        std::string message;
    } rows[] = {
        {"abc", ItemType_i4, NONE, &typeid(COxInvalidValueException), "The value [abc] can not be converted to a i4"},
        {"1", ItemType_i4, static_cast<CWhitespaceUtils::WhitespaceRule>(7), &typeid(COxException),
         "Unknown WhitespaceRule"},
        {"0G", ItemType_hexBinary, NONE, &typeid(COxException), "Invalid char in hex string [G]"},
        {"x", ItemType_invalid, NONE, &typeid(COxException), "Invalid Type 0 to convert to string"},
        {"x", ItemType_XmlObjectBase, NONE, &typeid(COxException), "Invalid Type 27 to convert to string"},
        {"x", ItemType_XmlCollection, NONE, &typeid(COxException), "Invalid Type 28 to convert to string"},
        {"x", static_cast<ItemType>(31), NONE, &typeid(COxException), "Invalid Type 31 to convert to string"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.message);
        OxVariant v;
        v.SetString("keep");
        OrvexXmlTest::ExpectThrowExact([&]() { v.FromString(row.text, row.type, row.rule); }, *row.pException,
                                       row.message);
        EXPECT_EQ(ItemType_string, v.GetTypeAsEnum());
        EXPECT_EQ("keep", v.GetString());
    }
}

}  // namespace
