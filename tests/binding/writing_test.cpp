#include "amount.h"
#include "bindinghelpers.h"
#include "note.h"
#include "person.h"
#include "primitiveset.h"
#include "shape.h"
#include "support/testclasses.h"

using namespace OrvexXml;
using namespace OrvexXmlData;
using namespace OrvexTest;
using namespace OrvexBindTest;
using namespace Samples;

namespace {

const char* const kXsi = "http://www.w3.org/2001/XMLSchema-instance";

TEST(Writing, PersonTextFollowsHeaderFormattingAndLineEnds) {
    CSmartPtr<CPerson> person = CPerson::CreateInstance();
    person->SetName("x");
    EXPECT_EQ(person->ToXml(true, true, EOLType_LF, DefaultCtx()),
              "<?xml version=\"1.0\"?>\n<Person>\n\t<Name>x</Name>\n</Person>\n");
    person->SetName("a\nb");
    EXPECT_EQ(Flat(person), "<Person><Name>a\nb</Name></Person>");
    EXPECT_EQ(person->ToXml(true, true, EOLType_CRLF, DefaultCtx()),
              "<?xml version=\"1.0\"?>\r\n<Person>\r\n\t<Name>a\r\nb</Name>\r\n</Person>\r\n");
    CSerializationContext ctx;
    ctx.SetIndentChars("  ");
    EXPECT_EQ(person->ToXml(false, true, EOLType_LF, ctx), "<Person>\n  <Name>a\nb</Name>\n</Person>\n");
}

TEST(Writing, RootCarriesInstructionsAliasesSortedByUriAndInlineSchema) {
    CSmartPtr<CPerson> person = CPerson::CreateInstance();
    person->SetName("x");
    CSerializationContext ctx;
    ctx.GetProcessingInstructions().push_back("<?xml-stylesheet href=\"a.xsl\"?>");
    ctx.GetNamespaceAliases().Add("zz", "urn:a");
    ctx.GetNamespaceAliases().Add("aa", "urn:b");
    ctx.SetInLineSchema("<schema/>");
    EXPECT_EQ(person->ToXml(true, true, EOLType_LF, ctx),
              "<?xml version=\"1.0\"?>\n"
              "<?xml-stylesheet href=\"a.xsl\"?>\n\n"
              "<Person xmlns:zz=\"urn:a\" xmlns:aa=\"urn:b\" \n<schema/>\n>\n"
              "\t<Name>x</Name>\n"
              "</Person>\n");
}

TEST(Writing, EveryPrimitiveKindWithPrefixesDefaultsOptionalsAndFormats) {
    CSmartPtr<CPrimitiveSet> set = CPrimitiveSet::CreateInstance();
    set->SetByteVal(-5);
    set->SetLongVal(9007199254740993LL);
    set->SetUByteVal(200);
    set->SetUShortVal(65535);
    set->SetULongVal(18446744073709551615ULL);
    set->SetFloatVal(3.14159274f);
    set->SetDoubleVal(2.71828);
    set->SetText("Fish & <chips>");
    set->SetFlag(false);
    CSerializationContext alias;
    alias.GetNamespaceAliases().Add("p", "urn:orvex:samples:primitives");
    EXPECT_EQ(set->ToXml(false, true, EOLType_LF, alias),
              "<p:PrimitiveSet xmlns:p=\"urn:orvex:samples:primitives\">\n"
              "\t<p:ByteVal>-5</p:ByteVal>\n"
              "\t<p:IntVal/>\n"
              "\t<p:LongVal>9007199254740993</p:LongVal>\n"
              "\t<p:UByteVal>200</p:UByteVal>\n"
              "\t<p:UShortVal>65535</p:UShortVal>\n"
              "\t<p:ULongVal>18446744073709551615</p:ULongVal>\n"
              "\t<p:FloatVal>3.141593</p:FloatVal>\n"
              "\t<p:DoubleVal>2.718</p:DoubleVal>\n"
              "\t<p:Text>Fish &amp; &lt;chips&gt;</p:Text>\n"
              "\t<p:Flag>false</p:Flag>\n"
              "</p:PrimitiveSet>\n");
    CSerializationContext defaultNamespace;
    defaultNamespace.SetDefaultNamespaceURI("urn:orvex:samples:primitives");
    std::string xml = Flat(set, defaultNamespace);
    EXPECT_EQ(xml.rfind("<PrimitiveSet xmlns=\"urn:orvex:samples:primitives\"><ByteVal>-5</ByteVal><IntVal/>", 0), 0u)
        << xml;

    set->SetShortVal(-32768);
    set->SetUIntVal(4294967295u);
    set->SetFlag(true);  // equals its default
    CSerializationContext defaults;
    defaults.SetWriteDefaultElementValues(true);
    EXPECT_EQ(Flat(set, defaults),
              "<AA:PrimitiveSet xmlns:AA=\"urn:orvex:samples:primitives\">"
              "<AA:ByteVal>-5</AA:ByteVal><AA:ShortVal>-32768</AA:ShortVal><AA:IntVal>42</AA:IntVal>"
              "<AA:LongVal>9007199254740993</AA:LongVal><AA:UByteVal>200</AA:UByteVal>"
              "<AA:UShortVal>65535</AA:UShortVal><AA:UIntVal>4294967295</AA:UIntVal>"
              "<AA:ULongVal>18446744073709551615</AA:ULongVal><AA:FloatVal>3.141593</AA:FloatVal>"
              "<AA:DoubleVal>2.718</AA:DoubleVal>"
              "<AA:Text>Fish &amp; &lt;chips&gt;</AA:Text><AA:Flag>true</AA:Flag></AA:PrimitiveSet>");
    // Without the setting both defaults come out as empty elements.
    xml = Flat(set);
    EXPECT_NE(xml.find("<AA:IntVal/>"), std::string::npos) << xml;
    EXPECT_NE(xml.find("<AA:Flag/>"), std::string::npos) << xml;
}

TEST(Writing, ChoiceWritesOnlyTheSelectedMemberAndMayBeEmptyOnlyWithOptionalMembers) {
    CSmartPtr<CShape> shape = CShape::CreateInstance();
    shape->SetSquare(2.5);
    EXPECT_EQ(Flat(shape), "<Shape><Square>2.5</Square></Shape>");
    EXPECT_THROW(shape->SetLabel("no"), COxInvalidStateException);
    shape->SetValidSquare(false);
    shape->SetLabel("tri");
    EXPECT_EQ(Flat(shape), "<Shape><Label>tri</Label></Shape>");
    shape->SetValidLabel(false);
    EXPECT_EQ(Flat(shape), "<Shape/>");

    CSmartPtr<CStrictChoice> choice = new CStrictChoice();
    EXPECT_EQ(Thrown([&] { Flat(choice); }),
              "Failed to convert the element [StrictChoice] to XML\n"
              "This element is a choice, and as such must have at one (and only one) valid item, currently there "
              "are none set");
    EXPECT_EQ(Flat(choice, Ignoring(kChoice)), "<StrictChoice/>");
    choice->m_bSecond = true;
    choice->m_bFirst = true;  // both set: only the first is written
    EXPECT_EQ(Flat(choice), "<StrictChoice><First>1</First></StrictChoice>");
}

TEST(Writing, NilObjectsAndElementsAndSimpleContent) {
    CSmartPtr<CNote> note = CNote::CreateInstance();
    note->SetBody("text");
    note->SetNil(true);
    EXPECT_EQ(Flat(note), "<Note xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:nil=\"true\"/>");
    CSerializationContext ctx;
    ctx.GetNamespaceAliases().Add("xsi", kXsi);
    EXPECT_EQ(Flat(note, ctx), "<Note xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:nil=\"true\"/>");
    note->SetNil(false);
    EXPECT_EQ(Flat(note), "<Note><Body>text</Body></Note>");

    CSmartPtr<CAmount> amount = CAmount::CreateInstance();
    amount->SetValue(19.5);
    EXPECT_EQ(amount->ToXml(false, true, EOLType_LF, DefaultCtx()), "<Amount>19.50</Amount>\n");  // its own format

    CSmartPtr<CTestRecord> record = new CTestRecord();
    record->m_value.SetString("v");
    record->m_value.SetNil();
    const std::string kNilValue =
        "<Record><Value xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:nil=\"true\"/>";
    EXPECT_EQ(Flat(record), kNilValue + "</Record>");
    // Simple content that is nil after an element child: the attribute comes too late.
    record->m_text.SetNil();
    EXPECT_EQ(Thrown([&] { Flat(record); }),
              "Failed to convert the element [Record] to XML\nAttributes must be added before elements");
    // Simple content with a value follows the element children. (A setter keeps the nil mark of a
    // variant that was nil without a type, so start from a fresh one.)
    record->m_text = OxVariant();
    record->m_text.SetString("tail");
    EXPECT_EQ(Flat(record), kNilValue + "tail</Record>");
}

TEST(Writing, FailuresAreWrappedOncePerLevel) {
    CSmartPtr<CTestRecord> inner = new CTestRecord();
    inner->SetElementName("Inner");
    CSmartPtr<CTestHolder> outer = new CTestHolder();
    outer->m_child = inner;
    EXPECT_EQ(Thrown<COxValidationException>([&] { Flat(outer); }),
              "Failed to convert the element [Holder] to XML\n"
              "Failed to convert the element [Inner] to XML\n"
              "The Property [Value] is mandatory, it may not be NULL");
    try {
        Flat(outer);
    } catch (const COxException& e) {
        ASSERT_NE(e.GetInnerException(), nullptr);
        ASSERT_NE(e.GetInnerException()->GetInnerException(), nullptr);
        EXPECT_NE(dynamic_cast<const COxInvalidParamException*>(e.GetInnerException()->GetInnerException()), nullptr);
    }
}

TEST(Writing, FailuresOfGettersGroupsAndMandatoryAllMembers) {
    CSmartPtr<CTestRecord> record = new CTestRecord();
    record->m_bFailGetter = true;
    EXPECT_EQ(Thrown([&] { Flat(record); }),
              "Failed to convert the element [Record] to XML\nFailed to get the property value for [Value].\n"
              "getter refused");
    record->m_bFailGetter = false;
    record->m_value.SetString("v");
    record->m_pParentInfo = &CTestRecord::ms_badGroup;
    EXPECT_EQ(Thrown([&] { Flat(record); }), "Failed to convert the element [Record] to XML\nUnknown XML Group Type");

    CSmartPtr<CTestAll> all = new CTestAll();
    all->m_second.SetI4(2);
    all->m_first.SetI4(1);
    EXPECT_EQ(Flat(all), "<All><First>1</First><Second>2</Second></All>");
    all->m_first.SetInvalid();
    EXPECT_EQ(Thrown([&] { Flat(all); }),
              "Failed to convert the element [All] to XML\nThe Property [First] is mandatory, it may not be NULL");
}

TEST(Writing, TypeAttributeOnlyForSubstitutedElementsOfDerivationFamilies) {
    CSmartPtr<CTestDerived> derived = new CTestDerived();
    EXPECT_EQ(Flat(derived), "<AA:Derived xmlns:AA=\"urn:types\"/>");
    derived->SetElementName("Base");
    CSerializationContext ctx;
    ctx.GetNamespaceAliases().Add("xsi", kXsi);
    ctx.GetNamespaceAliases().Add("t", "urn:types");
    EXPECT_EQ(Flat(derived, ctx),
              "<t:Base xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:t=\"urn:types\" "
              "xsi:type=\"t:Derived\"/>");
    ctx.SetWriteTypeAttribute(false);
    EXPECT_EQ(Flat(derived, ctx),
              "<t:Base xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:t=\"urn:types\"/>");
}

TEST(Writing, PseudoElementRootWritesOnlyItsContent) {
    CSmartPtr<CTestGroup> group = new CTestGroup();
    CSerializationContext ctx;
    ctx.GetProcessingInstructions().push_back("<?pi?>");
    ctx.SetDefaultNamespaceURI("urn:ignored");
    EXPECT_EQ(Flat(group, ctx), "<A>1</A><B>2</B>");
}

TEST(Versions, AMismatchRefusesEveryReadAndWrite) {
    CSmartPtr<CPerson> person = CPerson::CreateInstance();
    Register(15, 2);
    std::string strWrite = Thrown([&] { Flat(person); });
    Register(16, 0);
    std::string strRead = Thrown([&] { person->FromXml("<Person><Name>x</Name></Person>", DefaultCtx()); });
    Register(16, 1);
    EXPECT_EQ(strWrite, "Wrong Version (Orvex Runtime: v16.1, Generator: v15.2)");
    EXPECT_EQ(strRead, "Wrong Version (Orvex Runtime: v16.1, Generator: v16.0)");
    EXPECT_NO_THROW(Flat(person));
}

TEST(Metadata, CleanMetaDataFreesAndNullsAllThreeTables) {
    CParentElementInfo* pParent = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "X",
                                                         nullptr, false, false, -1, ItemType_invalid, nullptr, false);
    CElementInfo** ppElements = new CElementInfo* [2] {
        new CElementInfoSeqPrimOpt("E", "", 0, false, ItemType_i4, nullptr, CWhitespaceUtils::WhitespaceRule_collapse,
                                   CPrimitiveRestrictions(), nullptr),
            nullptr
    };
    CAttributeInfo** ppAttributes = new CAttributeInfo* [1] { nullptr };
    EXPECT_EQ(pParent->GetElementNamespace(), "");
    EXPECT_EQ(pParent->GetPrimitiveFormatOverride(), "");
    CTestRecord::CallCleanMetaData(pParent, ppElements, ppAttributes);  // the sanitizers check the freeing
    EXPECT_EQ(pParent, nullptr);
    EXPECT_EQ(ppElements, nullptr);
    EXPECT_EQ(ppAttributes, nullptr);

    CTestClassElementInfo info("Child", "", 0);
    OxVariant value;
    value.SetI4(3);
    EXPECT_EQ(Thrown([&] { info.CheckRestriction(value); }), "Cannot CheckRestriction for type: i4");
    EXPECT_EQ(Thrown([&] { info.CallValidate(); }), "Not implemented, should never be called");
}

}  // namespace
