#include "orvexxml/values/itemtypeinfo.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

#include "expectthrow.h"
#include "orvexxml/binding/xmlobjectbase.h"
#include "orvexxml/collections/stringcol.h"
#include "orvexxml/values/biginteger.h"
#include "orvexxml/values/binarydata.h"
#include "orvexxml/values/conversions.h"
#include "orvexxml/values/datetime.h"
#include "orvexxml/values/datetimespan.h"
#include "orvexxml/values/decimal.h"
#include "orvexxml/values/oxvariant.h"

using namespace OrvexXml;

namespace {

const bool g_bRegistered = (Register(16, 1), true);

class CPlainObject : public CXmlObjectBase {
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return std::string(); }

protected:
    std::string GetTargetNamespace() const override { return std::string(); }
    void ToXml_Int(CXmlWriter*, bool, const char*, const CSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {
        return nullptr;
    }
};

uint64_t UnionBits(const OxVariant& v) {
    uint64_t nBits;
    std::memcpy(&nBits, &v.m_ullValue, sizeof(nBits));
    return nBits;
}

// Each row against the variant's own setters: the type a setter gives, and whether a copy
// gets a new pointer (owned) or the same one with one more reference.
TEST(ItemTypeInfo, EveryRowAgreesWithTheVariant) {
    ASSERT_TRUE(g_bRegistered);
    CSmartPtr<CPlainObject> pObject = new CPlainObject;
    CSmartPtr<CstringCol> pCollection = new CstringCol("item", "", 0, -1, "", -1, -1, "", "", "", "", -1, -1, -1,
                                                       CWhitespaceUtils::WhitespaceRule_none, "");

    typedef void (*Setter)(OxVariant&, CXmlObjectBase*, CXmlCollectionBase*);
    const struct {
        Setter set;
        CItemTypeInfo::Storage storage;
    } rows[] = {
#define INLINE_ROW(Set) \
    {[](OxVariant& v, CXmlObjectBase*, CXmlCollectionBase*) { v.Set(1); }, CItemTypeInfo::Storage_inline}
        INLINE_ROW(SetI1),
        INLINE_ROW(SetI2),
        INLINE_ROW(SetI4),
        INLINE_ROW(SetI8),
        INLINE_ROW(SetUI1),
        INLINE_ROW(SetUI2),
        INLINE_ROW(SetUI4),
        INLINE_ROW(SetUI8),
        INLINE_ROW(SetR4),
        INLINE_ROW(SetR8),
        INLINE_ROW(SetYear),
        INLINE_ROW(SetMonth),
        INLINE_ROW(SetDay),
        INLINE_ROW(SetChar),
        INLINE_ROW(SetBoolean),
#undef INLINE_ROW
        {[](OxVariant& v, CXmlObjectBase*, CXmlCollectionBase*) { v.SetHexBinary(CBinaryData("ab")); },
         CItemTypeInfo::Storage_owned},
        {[](OxVariant& v, CXmlObjectBase*, CXmlCollectionBase*) { v.SetBase64Binary(CBinaryData("ab")); },
         CItemTypeInfo::Storage_owned},
        {[](OxVariant& v, CXmlObjectBase*, CXmlCollectionBase*) { v.SetString("a"); }, CItemTypeInfo::Storage_owned},
        {[](OxVariant& v, CXmlObjectBase*, CXmlCollectionBase*) { v.SetDuration(CDateTimeSpan(0, 0, 1, 0, 0, 0)); },
         CItemTypeInfo::Storage_owned},
#define DATE_ROW(Set, kind, text)                                                            \
    {[](OxVariant& v, CXmlObjectBase*, CXmlCollectionBase*) {                                \
         v.Set(CConversions::kind##FromString(text, CWhitespaceUtils::WhitespaceRule_none)); \
     },                                                                                      \
     CItemTypeInfo::Storage_owned}
        DATE_ROW(SetYearMonth, yearMonth, "2024-05"),
        DATE_ROW(SetMonthDay, monthDay, "--05-17"),
        DATE_ROW(SetDate, date, "2024-05-17"),
        DATE_ROW(SetDateTime, datetime, "2024-05-17T10:00:00"),
        DATE_ROW(SetTime, time, "10:00:00"),
#undef DATE_ROW
        {[](OxVariant& v, CXmlObjectBase*, CXmlCollectionBase*) { v.SetDecimal(CDecimal("1.5")); },
         CItemTypeInfo::Storage_owned},
        {[](OxVariant& v, CXmlObjectBase*, CXmlCollectionBase*) { v.SetInteger(CBigInteger(7)); },
         CItemTypeInfo::Storage_owned},
        {[](OxVariant& v, CXmlObjectBase* pObj, CXmlCollectionBase*) { v.SetXmlObject(pObj); },
         CItemTypeInfo::Storage_reference},
        {[](OxVariant& v, CXmlObjectBase*, CXmlCollectionBase* pCol) { v.SetXmlCollection(pCol); },
         CItemTypeInfo::Storage_reference}};

    std::set<int> covered;
    for (const auto& row : rows) {
        OxVariant v;
        row.set(v, pObject, pCollection);
        const int nType = v.GetTypeAsEnum();
        SCOPED_TRACE("type " + std::to_string(nType));
        covered.insert(nType);
        const CItemTypeInfo& info = CItemTypeInfo::Get(nType);
        EXPECT_EQ(nType, info.m_eType);
        EXPECT_EQ(row.storage, info.m_eStorage);
        if (row.storage == CItemTypeInfo::Storage_owned) {
            OxVariant copy(v);
            EXPECT_NE(UnionBits(v), UnionBits(copy));
        } else if (row.storage == CItemTypeInfo::Storage_reference) {
            CXmlObjectBase* pHeld = v.GetXmlObject().Get();
            const OxLong nRefsBefore = (pHeld->AddRef(), pHeld->Release());
            OxVariant copy(v);
            EXPECT_EQ(UnionBits(v), UnionBits(copy));
            EXPECT_EQ(nRefsBefore + 1, (pHeld->AddRef(), pHeld->Release()));
        }
        EXPECT_EQ(row.storage == CItemTypeInfo::Storage_reference, info.m_pfnToText == nullptr);
    }

    // Type 0 and numbers outside the enum: every operation refuses them.
    for (int nType : {0, -1, 29}) {
        SCOPED_TRACE("type " + std::to_string(nType));
        if (nType >= 0 && nType < CItemTypeInfo::Count) {
            covered.insert(nType);
            EXPECT_EQ(nType, CItemTypeInfo::Get(nType).m_eType);
        }
        const std::string strNoText = "Invalid Type " + std::to_string(nType) + " to convert to string";
        OxVariant v;
        EXPECT_OX_THROW(v.FromString("1", static_cast<ItemType>(nType), CWhitespaceUtils::WhitespaceRule_none),
                        COxException, strNoText);
        v.m_type = static_cast<ItemType>(nType);
        EXPECT_OX_THROW(v.ToString(nullptr), COxException, strNoText);
        if (nType != 0) EXPECT_OX_THROW(OxVariant copy(v), COxException, "Unknown Type");
        v.m_type = ItemType_invalid;
    }
    EXPECT_EQ(static_cast<size_t>(CItemTypeInfo::Count), covered.size());
}

}  // namespace
