#pragma once

#include <string>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"

namespace OrvexXml {

// Receives the events of CJsonTextReader, in document order. Strings arrive unescaped and
// numbers as the characters of the document, unconverted. A handler may throw to stop the
// parse; the exception leaves Parse unchanged.
class ORVEXXML_API IJsonReaderHandler : public CInstanceMonitor {
public:
    IJsonReaderHandler();
    ~IJsonReaderHandler() override;

    // Once, before anything else.
    virtual void StartDocument() = 0;
    // Once, after everything else.
    virtual void EndDocument() = 0;
    // The name of an object member, before its value.
    virtual void Name(const std::string& strName) = 0;
    virtual void String(const std::string& strValue) = 0;
    virtual void Number(const std::string& strValue) = 0;
    virtual void StartObject() = 0;
    virtual void EndObject() = 0;
    virtual void StartArray() = 0;
    virtual void EndArray() = 0;
    virtual void Bool(bool bValue) = 0;
    virtual void Null() = 0;
};

}  // namespace OrvexXml
