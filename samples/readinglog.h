// Generated class for the element ReadingLog: a station's log with long runs of repeating
// elements (the large document of the benchmarks).
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CReadingLog : public OrvexXml::CXmlGeneratedClass {
public:
    CReadingLog();
    virtual ~CReadingLog();

    static OrvexXml::CSmartPtr<CReadingLog> CreateInstance() { return new CReadingLog(); }

    // Station: xs:string, mandatory
    const std::string& GetStation() const { return m_Station; }
    void SetStation(const std::string& value) { m_Station = value; }
    // Sensor: xs:string, 0 to unbounded
    OrvexXml::CstringCol& GetSensor() { return *m_Sensor; }
    // Sequence: xs:long, 0 to unbounded
    OrvexXml::Ci8Col& GetSequence() { return *m_Sequence; }
    // Value: xs:double, 0 to unbounded, written with the format "%.3f"
    OrvexXml::Cr8Col& GetValue() { return *m_Value; }
    // Level: xs:int, 0 to unbounded
    OrvexXml::Ci4Col& GetLevel() { return *m_Level; }
    // Valid: xs:boolean, 0 to unbounded
    OrvexXml::CbooleanCol& GetValid() { return *m_Valid; }
    // Note: xs:string, 0 to unbounded
    OrvexXml::CstringCol& GetNote() { return *m_Note; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:orvex:samples:readings"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:orvex:samples:readings"; }

private:
    CReadingLog(const CReadingLog&) = delete;
    CReadingLog& operator=(const CReadingLog&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_Station;
    OrvexXml::CSmartPtr<OrvexXml::CstringCol> m_Sensor;
    OrvexXml::CSmartPtr<OrvexXml::Ci8Col> m_Sequence;
    OrvexXml::CSmartPtr<OrvexXml::Cr8Col> m_Value;
    OrvexXml::CSmartPtr<OrvexXml::Ci4Col> m_Level;
    OrvexXml::CSmartPtr<OrvexXml::CbooleanCol> m_Valid;
    OrvexXml::CSmartPtr<OrvexXml::CstringCol> m_Note;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
