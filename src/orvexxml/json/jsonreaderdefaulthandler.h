#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "orvexxml/export.h"
#include "orvexxml/json/errorpathprovider.h"
#include "orvexxml/json/jsonreaderhandler.h"

namespace OrvexXml {

// The head of every handler chain of CJsonTextReader. It keeps the way from the document's
// outermost value to the current one, so that a failure can name where it happened, traces
// each event to the debug output, and passes the event on to the handler behind it.
//
// The path reads innermost first: at member c of the second object in array b of object a it
// is "$.c.b[1].a". An object in an array carries the array's name and the number of objects
// begun in that array so far; scalars in an array are not counted, and arrays add nothing.
class ORVEXXML_API CJsonReaderDefaultHandler final : public IJsonReaderHandler, public IErrorPathProvider {
public:
    CJsonReaderDefaultHandler();
    ~CJsonReaderDefaultHandler() override;
    CJsonReaderDefaultHandler(const CJsonReaderDefaultHandler&) = delete;
    CJsonReaderDefaultHandler& operator=(const CJsonReaderDefaultHandler&) = delete;

    // Installs the handler that receives the events after this one, taking ownership; a
    // previous one is deleted. Null leaves none.
    void SetNextHandler(IJsonReaderHandler* pNext);
    IJsonReaderHandler* GetNextHandler() const { return m_pNext; }

    void StartDocument() override;
    void EndDocument() override;
    void Name(const std::string& strName) override;
    void String(const std::string& strValue) override;
    void Number(const std::string& strValue) override;
    void StartObject() override;
    void EndObject() override;
    void StartArray() override;
    void EndArray() override;
    void Bool(bool bValue) override;
    void Null() override;

    std::string GetErrorPath() override;

private:
    enum ItemKind : int32_t { ItemKind_Array = 0, ItemKind_Name = 1, ItemKind_Object = 2 };

    struct StackItem {
        std::string name;  // for an object in an array: the array's name and its index, as name[2]
        int32_t index;     // number of the last object begun in this array, -1 before the first
        int32_t kind;      // an ItemKind
    };

    // The items live in m_stack[0, m_nDepth); popped ones stay allocated and are reused by
    // the next push, so that a long document costs no allocation per member.
    StackItem& Push(int32_t nKind);
    void Pop() { --m_nDepth; }
    StackItem& Top() { return m_stack[m_nDepth - 1]; }
    // Pops items until one of the kind has been popped or none is left.
    void PopThrough(int32_t nKind);

    std::vector<StackItem> m_stack;
    IJsonReaderHandler* m_pNext;
    size_t m_nDepth;
};

}  // namespace OrvexXml
