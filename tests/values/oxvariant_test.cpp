#include "orvexxml/values/oxvariant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "expectthrow.h"
#include "orvexxml/binding/xmlobjectbase.h"

using OrvexXml::COxException;
using OrvexXml::COxInvalidValueException;
using OrvexXml::CSmartPtr;
using OrvexXml::CWhitespaceUtils;
using OrvexXml::CXmlObjectBase;
using OrvexXml::ItemType;
using OrvexXml::OxLong;
using OrvexXml::OxVariant;

namespace {

// Generated code announces its version before it builds objects; do the same so that the
// version check of the first object stays quiet.
const bool g_bRegistered = (OrvexXml::Register(16, 1), true);

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
    void ToXml_Int(OrvexXml::CXmlWriter*, bool, const char*, const OrvexXml::CSerializationContext&,
                   bool) const override {}
    OrvexXml::CXmlElement* FromXml_Int(OrvexXml::CXmlElement*, OrvexXml::CXmlElement*,
                                       const OrvexXml::CSerializationContext&, bool) override {
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

// --- empty, nil, valid --------------------------------------------------------------------

TEST(OxVariantState, DefaultIsEmpty) {
    ASSERT_TRUE(g_bRegistered);
    OxVariant v;
    EXPECT_EQ(OrvexXml::ItemType_invalid, v.GetTypeAsEnum());
    EXPECT_FALSE(v.IsNil());
    EXPECT_FALSE(v.IsValid());
    EXPECT_EQ(nullptr, v.m_pString);
}

TEST(OxVariantState, SetNilKeepsTheType) {
    OxVariant v;
    v.SetI4(42);
    v.SetNil();
    EXPECT_EQ(OrvexXml::ItemType_i4, v.GetTypeAsEnum());
    EXPECT_TRUE(v.IsNil());
    EXPECT_TRUE(v.IsValid());
    v.Clear();
    EXPECT_EQ(OrvexXml::ItemType_invalid, v.GetTypeAsEnum());
    EXPECT_FALSE(v.IsNil());
    EXPECT_FALSE(v.IsValid());
}

TEST(OxVariantState, NilWithoutTypeSurvivesClearAndSetters) {
    OxVariant v;
    v.SetNil();
    EXPECT_EQ(OrvexXml::ItemType_invalid, v.GetTypeAsEnum());
    EXPECT_TRUE(v.IsNil());
    EXPECT_TRUE(v.IsValid());
    // Clear returns at once for type 0, so the nil flag stays.
    v.Clear();
    EXPECT_TRUE(v.IsNil());
    v.SetI4(5);
    EXPECT_TRUE(v.IsNil());
    EXPECT_EQ(OrvexXml::ItemType_i4, v.GetTypeAsEnum());
    EXPECT_EQ(5, v.GetI4());
    // A setter on a typed variant clears the flag.
    v.SetI4(6);
    EXPECT_FALSE(v.IsNil());
}

TEST(OxVariantState, SetterClearsNilOfTypedVariant) {
    OxVariant v;
    v.SetString("x");
    v.SetNil();
    EXPECT_EQ(nullptr, v.m_pString);
    v.SetBoolean(true);
    EXPECT_FALSE(v.IsNil());
    EXPECT_EQ(OrvexXml::ItemType_boolean, v.GetTypeAsEnum());
    EXPECT_TRUE(v.GetBoolean());
}

TEST(OxVariantState, SetInvalidEmptiesTheVariant) {
    OxVariant v;
    v.SetString("abc");
    v.SetInvalid();
    EXPECT_EQ(OrvexXml::ItemType_invalid, v.GetTypeAsEnum());
    EXPECT_FALSE(v.IsValid());
    EXPECT_EQ(nullptr, v.m_pString);
}

// --- type names ---------------------------------------------------------------------------

TEST(OxVariantType, NamesOfAllNamedTypes) {
    const char* names[] = {nullptr,     "hexBinary", "base64Binary", "i1",      "i2",      "i4",     "i8",
                           "ui1",       "ui2",       "ui4",          "ui8",     "r4",      "r8",     "duration",
                           "yearMonth", "monthDay",  "year",         "month",   "day",     "date",   "datetime",
                           "time",      "char",      "string",       "boolean", "decimal", "integer"};
    for (int n = 1; n <= 26; ++n) {
        OxVariant v;
        // Only the tag is needed for the name; a nil variant holds no value of any kind.
        v.m_type = static_cast<ItemType>(n);
        v.m_isNil = true;
        EXPECT_EQ(names[n], v.GetType()) << "type " << n;
        v.m_type = OrvexXml::ItemType_invalid;
    }
}

TEST(OxVariantType, TypesWithoutNameAreRefused) {
    OxVariant v;
    EXPECT_OX_THROW(v.GetType(), COxException, "Invalid Type 0");
    v.SetXmlObject(nullptr);
    EXPECT_EQ(OrvexXml::ItemType_XmlObjectBase, v.GetTypeAsEnum());
    EXPECT_OX_THROW(v.GetType(), COxException, "Invalid Type 27");

    OxVariant col;
    col.m_type = OrvexXml::ItemType_XmlCollection;
    col.m_isNil = true;
    EXPECT_EQ(28, col.GetTypeAsEnum());
    EXPECT_OX_THROW(col.GetType(), COxException, "Invalid Type 28");
    col.m_type = OrvexXml::ItemType_invalid;
}

// --- setters and getters of the inline kinds ---------------------------------------------

TEST(OxVariantValues, InlineKindsKeepTheirValueAndType) {
    OxVariant v;
    v.SetI1(static_cast<char>(-128));
    EXPECT_EQ(OrvexXml::ItemType_i1, v.GetTypeAsEnum());
    EXPECT_EQ(-128, static_cast<signed char>(v.GetI1()));
    v.SetI2(-32768);
    EXPECT_EQ(OrvexXml::ItemType_i2, v.GetTypeAsEnum());
    EXPECT_EQ(-32768, v.GetI2());
    v.SetI4(std::numeric_limits<int32_t>::min());
    EXPECT_EQ(OrvexXml::ItemType_i4, v.GetTypeAsEnum());
    EXPECT_EQ(std::numeric_limits<int32_t>::min(), v.GetI4());
    v.SetI8(std::numeric_limits<int64_t>::min());
    EXPECT_EQ(OrvexXml::ItemType_i8, v.GetTypeAsEnum());
    EXPECT_EQ(std::numeric_limits<int64_t>::min(), v.GetI8());
    v.SetUI1(255);
    EXPECT_EQ(OrvexXml::ItemType_ui1, v.GetTypeAsEnum());
    EXPECT_EQ(255, v.GetUI1());
    v.SetUI2(65535);
    EXPECT_EQ(OrvexXml::ItemType_ui2, v.GetTypeAsEnum());
    EXPECT_EQ(65535, v.GetUI2());
    v.SetUI4(4294967295u);
    EXPECT_EQ(OrvexXml::ItemType_ui4, v.GetTypeAsEnum());
    EXPECT_EQ(4294967295u, v.GetUI4());
    v.SetUI8(std::numeric_limits<uint64_t>::max());
    EXPECT_EQ(OrvexXml::ItemType_ui8, v.GetTypeAsEnum());
    EXPECT_EQ(std::numeric_limits<uint64_t>::max(), v.GetUI8());
    v.SetR4(1.5f);
    EXPECT_EQ(OrvexXml::ItemType_r4, v.GetTypeAsEnum());
    EXPECT_EQ(1.5f, v.GetR4());
    v.SetR8(-2.25);
    EXPECT_EQ(OrvexXml::ItemType_r8, v.GetTypeAsEnum());
    EXPECT_EQ(-2.25, v.GetR8());
    v.SetYear(2024);
    EXPECT_EQ(OrvexXml::ItemType_year, v.GetTypeAsEnum());
    EXPECT_EQ(2024, v.GetYear());
    v.SetMonth(12);
    EXPECT_EQ(OrvexXml::ItemType_month, v.GetTypeAsEnum());
    EXPECT_EQ(12, v.GetMonth());
    v.SetDay(31);
    EXPECT_EQ(OrvexXml::ItemType_day, v.GetTypeAsEnum());
    EXPECT_EQ(31, v.GetDay());
    v.SetChar('z');
    EXPECT_EQ(OrvexXml::ItemType_char, v.GetTypeAsEnum());
    EXPECT_EQ('z', v.GetChar());
    v.SetBoolean(true);
    EXPECT_EQ(OrvexXml::ItemType_boolean, v.GetTypeAsEnum());
    EXPECT_TRUE(v.GetBoolean());
    v.SetString("text");
    EXPECT_EQ(OrvexXml::ItemType_string, v.GetTypeAsEnum());
    EXPECT_EQ("text", v.GetString());
    EXPECT_FALSE(v.IsNil());
}

TEST(OxVariantValues, StringIsAnOwnedCopy) {
    std::string text = "abc";
    OxVariant v;
    v.SetString(text);
    text[0] = 'X';
    EXPECT_EQ("abc", v.GetString());
    std::string got = v.GetString();
    got[0] = 'Y';
    EXPECT_EQ("abc", v.GetString());
    v.SetString(std::string("with\0nul", 8));
    EXPECT_EQ(8u, v.GetString().size());
}

// --- copying ------------------------------------------------------------------------------

TEST(OxVariantCopy, EveryInlineKindCopiesItsValue) {
    OxVariant sources[16];
    sources[0].SetI1(static_cast<char>(-7));
    sources[1].SetI2(-300);
    sources[2].SetI4(-70000);
    sources[3].SetI8(-5000000000ll);
    sources[4].SetUI1(200);
    sources[5].SetUI2(60000);
    sources[6].SetUI4(4000000000u);
    sources[7].SetUI8(10000000000000000000ull);
    sources[8].SetR4(0.5f);
    sources[9].SetR8(1e300);
    sources[10].SetYear(1999);
    sources[11].SetMonth(7);
    sources[12].SetDay(9);
    sources[13].SetChar('q');
    sources[14].SetBoolean(true);
    sources[15].SetString("s");
    for (const OxVariant& source : sources) {
        OxVariant copy(source);
        EXPECT_EQ(source.GetTypeAsEnum(), copy.GetTypeAsEnum());
        EXPECT_EQ(source.ToString(), copy.ToString()) << source.GetType();
        // Assignment over a variant that held something else.
        OxVariant assigned;
        assigned.SetUI8(std::numeric_limits<uint64_t>::max());
        assigned = source;
        EXPECT_EQ(source.GetTypeAsEnum(), assigned.GetTypeAsEnum());
        EXPECT_EQ(source.ToString(), assigned.ToString()) << source.GetType();
        EXPECT_FALSE(assigned.IsNil());
    }
}

TEST(OxVariantCopy, StringCopyIsDeep) {
    OxVariant v;
    v.SetString("first");
    OxVariant copy(v);
    EXPECT_NE(v.m_pString, copy.m_pString);
    v.SetString("second");
    EXPECT_EQ("first", copy.GetString());
    copy = v;
    EXPECT_EQ("second", copy.GetString());
    EXPECT_NE(v.m_pString, copy.m_pString);
}

TEST(OxVariantCopy, SelfAssignmentKeepsTheValue) {
    OxVariant v;
    v.SetString("keep");
    OxVariant& alias = v;
    v = alias;
    EXPECT_EQ(OrvexXml::ItemType_string, v.GetTypeAsEnum());
    EXPECT_EQ("keep", v.GetString());
}

TEST(OxVariantCopy, NilCopiesTypeButNoValue) {
    OxVariant v;
    v.SetString("abc");
    v.SetNil();
    OxVariant copy(v);
    EXPECT_EQ(OrvexXml::ItemType_string, copy.GetTypeAsEnum());
    EXPECT_TRUE(copy.IsNil());
    EXPECT_EQ(nullptr, copy.m_pString);

    // Assigned over a variant whose inline bytes were not zero: the pointer is still null.
    OxVariant target;
    target.SetI8(-1);
    target = v;
    EXPECT_TRUE(target.IsNil());
    EXPECT_EQ(nullptr, target.m_pString);
}

TEST(OxVariantCopy, UnknownTypeIsRefused) {
    OxVariant source;
    // 31 is beyond the enumerators yet a value the enum can hold.
    source.m_type = static_cast<ItemType>(31);
    OxVariant target;
    target.SetString("old");
    EXPECT_OX_THROW(target = source, COxException, "Unknown Type");
    // The target is left empty rather than half-copied.
    EXPECT_EQ(OrvexXml::ItemType_invalid, target.GetTypeAsEnum());
    EXPECT_FALSE(target.IsNil());
    EXPECT_OX_THROW(OxVariant copy(source), COxException, "Unknown Type");
    source.m_type = OrvexXml::ItemType_invalid;
}

// --- object references --------------------------------------------------------------------

TEST(OxVariantObject, HoldsOneCountedReference) {
    int nDestroyed = 0;
    CSmartPtr<CXmlObjectBase> spObject(new CCountedObject(&nDestroyed));
    ASSERT_EQ(1, RefCount(spObject));
    {
        OxVariant v;
        v.SetXmlObject(spObject);
        EXPECT_EQ(OrvexXml::ItemType_XmlObjectBase, v.GetTypeAsEnum());
        EXPECT_EQ(2, RefCount(spObject));
        {
            OxVariant copy(v);
            EXPECT_EQ(3, RefCount(spObject));
            OxVariant assigned;
            assigned = v;
            EXPECT_EQ(4, RefCount(spObject));
        }
        EXPECT_EQ(2, RefCount(spObject));
        {
            CSmartPtr<CXmlObjectBase> spGot = v.GetXmlObject();
            EXPECT_EQ(spObject.Get(), spGot.Get());
            EXPECT_EQ(3, RefCount(spObject));
        }
        EXPECT_EQ(2, RefCount(spObject));
        v.SetNil();
        EXPECT_EQ(OrvexXml::ItemType_XmlObjectBase, v.GetTypeAsEnum());
        EXPECT_EQ(nullptr, v.m_pXmlObject);
        EXPECT_EQ(1, RefCount(spObject));
        v.SetXmlObject(spObject);
        EXPECT_EQ(2, RefCount(spObject));
    }
    EXPECT_EQ(1, RefCount(spObject));
    EXPECT_EQ(0, nDestroyed);
    spObject = nullptr;
    EXPECT_EQ(1, nDestroyed);
}

TEST(OxVariantObject, LastReferenceDestroysTheObject) {
    int nDestroyed = 0;
    OxVariant v;
    v.SetXmlObject(new CCountedObject(&nDestroyed));
    // Setting the object the variant alone holds must not destroy it on the way.
    v.SetXmlObject(v.m_pXmlObject);
    EXPECT_EQ(0, nDestroyed);
    EXPECT_EQ(1, RefCount(v.m_pXmlObject));
    OxVariant copy(v);
    v.Clear();
    EXPECT_EQ(0, nDestroyed);
    copy.SetI4(1);
    EXPECT_EQ(1, nDestroyed);
}

TEST(OxVariantObject, ReplacingReleasesTheFormerObject) {
    int nFirst = 0;
    int nSecond = 0;
    OxVariant v;
    v.SetXmlObject(new CCountedObject(&nFirst));
    v.SetXmlObject(new CCountedObject(&nSecond));
    EXPECT_EQ(1, nFirst);
    EXPECT_EQ(0, nSecond);
    OxVariant other;
    v = other;
    EXPECT_EQ(1, nSecond);
    EXPECT_FALSE(v.IsValid());
}

TEST(OxVariantObject, NullIsALegalValue) {
    OxVariant v;
    v.SetXmlObject(nullptr);
    EXPECT_EQ(OrvexXml::ItemType_XmlObjectBase, v.GetTypeAsEnum());
    EXPECT_TRUE(v.IsValid());
    EXPECT_TRUE(v.GetXmlObject().IsNull());
    OxVariant copy(v);
    EXPECT_EQ(OrvexXml::ItemType_XmlObjectBase, copy.GetTypeAsEnum());
    EXPECT_TRUE(copy.GetXmlObject().IsNull());
}

TEST(OxVariantObject, NilObjectCopiedOverInlineBytesHoldsNoPointer) {
    int nDestroyed = 0;
    OxVariant source;
    source.SetXmlObject(new CCountedObject(&nDestroyed));
    source.SetNil();
    EXPECT_EQ(1, nDestroyed);
    OxVariant target;
    target.SetUI8(0x0123456789ABCDEFull);
    target = source;
    EXPECT_EQ(OrvexXml::ItemType_XmlObjectBase, target.GetTypeAsEnum());
    EXPECT_TRUE(target.IsNil());
    EXPECT_EQ(nullptr, target.m_pXmlObject);
    // Clearing must not release anything.
    target.Clear();
    EXPECT_EQ(1, nDestroyed);
}

// --- text ---------------------------------------------------------------------------------

TEST(OxVariantToString, UsesTheFormOfEachKind) {
    OxVariant v;
    v.SetI1(static_cast<char>(-5));
    EXPECT_EQ("-5", v.ToString(nullptr));
    v.SetUI8(18446744073709551615ull);
    EXPECT_EQ("18446744073709551615", v.ToString(nullptr));
    v.SetChar('\0');
    EXPECT_EQ("", v.ToString(nullptr));
    v.SetBoolean(false);
    EXPECT_EQ("false", v.ToString(nullptr));
    v.SetString(" as is\r\n");
    EXPECT_EQ(" as is\r\n", v.ToString(nullptr));
    v.SetYear(99);
    EXPECT_EQ("99", v.ToString(nullptr));
    v.SetMonth(3);
    EXPECT_EQ("--03", v.ToString(nullptr));
    v.SetDay(3);
    EXPECT_EQ("---03", v.ToString(nullptr));
}

TEST(OxVariantToString, FormatReachesOnlyTheFloats) {
    OxVariant v;
    v.SetR4(3.14159f);
    EXPECT_EQ("3.14", v.ToString("%.2f"));
    EXPECT_EQ("3.14159", v.ToString(nullptr));
    EXPECT_EQ("3.14159", v.ToString(""));
    v.SetR8(0.1 + 0.2);
    EXPECT_EQ("0.300", v.ToString("%.3f"));
    EXPECT_EQ("0.3", v.ToString(nullptr));
    v.SetR4(std::numeric_limits<float>::infinity());
    EXPECT_EQ("INF", v.ToString("%.2f"));
    v.SetI4(5);
    EXPECT_EQ("5", v.ToString("%.2f"));
}

TEST(OxVariantToString, KindsWithoutTextAreRefused) {
    OxVariant v;
    EXPECT_OX_THROW(v.ToString(nullptr), COxException, "Invalid Type 0 to convert to string");
    v.SetXmlObject(nullptr);
    EXPECT_OX_THROW(v.ToString(nullptr), COxException, "Invalid Type 27 to convert to string");
}

TEST(OxVariantFromString, ConvertsAndStoresByTheGivenType) {
    OxVariant v;
    v.FromString(" -12 ", OrvexXml::ItemType_i4, COLLAPSE);
    EXPECT_EQ(OrvexXml::ItemType_i4, v.GetTypeAsEnum());
    EXPECT_EQ(-12, v.GetI4());
    v.FromString("-1", OrvexXml::ItemType_ui4, NONE);
    EXPECT_EQ(OrvexXml::ItemType_ui4, v.GetTypeAsEnum());
    EXPECT_EQ(4294967295u, v.GetUI4());
    v.FromString("100", OrvexXml::ItemType_i1, NONE);
    EXPECT_EQ(OrvexXml::ItemType_i1, v.GetTypeAsEnum());
    EXPECT_EQ(100, v.GetI1());
    v.FromString("-300", OrvexXml::ItemType_i2, NONE);
    EXPECT_EQ(-300, v.GetI2());
    v.FromString("-9223372036854775808", OrvexXml::ItemType_i8, NONE);
    EXPECT_EQ(std::numeric_limits<int64_t>::min(), v.GetI8());
    v.FromString("200", OrvexXml::ItemType_ui1, NONE);
    EXPECT_EQ(200, v.GetUI1());
    v.FromString("60000", OrvexXml::ItemType_ui2, NONE);
    EXPECT_EQ(60000, v.GetUI2());
    v.FromString("18446744073709551615", OrvexXml::ItemType_ui8, NONE);
    EXPECT_EQ(std::numeric_limits<uint64_t>::max(), v.GetUI8());
    v.FromString("0.5", OrvexXml::ItemType_r4, NONE);
    EXPECT_EQ(OrvexXml::ItemType_r4, v.GetTypeAsEnum());
    EXPECT_EQ(0.5f, v.GetR4());
    v.FromString("-NAN", OrvexXml::ItemType_r8, NONE);
    EXPECT_EQ(OrvexXml::ItemType_r8, v.GetTypeAsEnum());
    EXPECT_TRUE(std::isnan(v.GetR8()));
    EXPECT_EQ("NaN", v.ToString(nullptr));
    v.FromString(" c ", OrvexXml::ItemType_char, COLLAPSE);
    EXPECT_EQ('c', v.GetChar());
    v.FromString("  two   words ", OrvexXml::ItemType_string, COLLAPSE);
    EXPECT_EQ("two words", v.GetString());
    v.FromString("TRUE", OrvexXml::ItemType_boolean, NONE);
    EXPECT_EQ(OrvexXml::ItemType_boolean, v.GetTypeAsEnum());
    EXPECT_TRUE(v.GetBoolean());
}

TEST(OxVariantFromString, ResultReplacesNil) {
    OxVariant v;
    v.SetI4(1);
    v.SetNil();
    v.FromString("7", OrvexXml::ItemType_i4, NONE);
    EXPECT_FALSE(v.IsNil());
    EXPECT_EQ(7, v.GetI4());
}

TEST(OxVariantFromString, RefusedTextKeepsFormerContent) {
    OxVariant v;
    v.SetString("keep");
    EXPECT_OX_THROW(v.FromString("abc", OrvexXml::ItemType_i4, NONE), COxInvalidValueException,
                    "The value [abc] can not be converted to a i4");
    EXPECT_OX_THROW(v.FromString("256", OrvexXml::ItemType_ui1, NONE), COxInvalidValueException,
                    "The value [256] is to large to fit in a ui1");
    EXPECT_OX_THROW(v.FromString("maybe", OrvexXml::ItemType_boolean, NONE), COxInvalidValueException,
                    "A Boolean Value read from an XML document was invalid [maybe]. Valid values are 'true', "
                    "'false', '1', or '0'");
    EXPECT_OX_THROW(v.FromString("1", OrvexXml::ItemType_i4, static_cast<CWhitespaceUtils::WhitespaceRule>(7)),
                    COxException, "Unknown WhitespaceRule");
    EXPECT_EQ(OrvexXml::ItemType_string, v.GetTypeAsEnum());
    EXPECT_EQ("keep", v.GetString());
}

TEST(OxVariantFromString, TypesWithoutTextFormAreRefused) {
    OxVariant v;
    v.SetI4(3);
    EXPECT_OX_THROW(v.FromString("x", OrvexXml::ItemType_invalid, NONE), COxException,
                    "Invalid Type 0 to convert to string");
    EXPECT_OX_THROW(v.FromString("x", OrvexXml::ItemType_XmlObjectBase, NONE), COxException,
                    "Invalid Type 27 to convert to string");
    EXPECT_OX_THROW(v.FromString("x", OrvexXml::ItemType_XmlCollection, NONE), COxException,
                    "Invalid Type 28 to convert to string");
    EXPECT_OX_THROW(v.FromString("x", static_cast<ItemType>(31), NONE), COxException,
                    "Invalid Type 31 to convert to string");
    EXPECT_EQ(OrvexXml::ItemType_i4, v.GetTypeAsEnum());
    EXPECT_EQ(3, v.GetI4());
}

}  // namespace
