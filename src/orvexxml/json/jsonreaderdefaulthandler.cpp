#include "orvexxml/json/jsonreaderdefaulthandler.h"

#include "orvexxml/infrastructure/debugtrace.h"

namespace OrvexXml {

namespace {
// The most of a name or value that its trace line shows: DebugTrace formats into a buffer of
// 32 KiB and requires the line to fit, and a value may be far longer.
const int kTracedBytes = 32000;
}  // namespace

CJsonReaderDefaultHandler::CJsonReaderDefaultHandler() : m_pNext(nullptr), m_nDepth(0) {}

CJsonReaderDefaultHandler::~CJsonReaderDefaultHandler() { delete m_pNext; }

void CJsonReaderDefaultHandler::SetNextHandler(IJsonReaderHandler* pNext) {
    if (pNext == m_pNext) return;
    delete m_pNext;
    m_pNext = pNext;
}

CJsonReaderDefaultHandler::StackItem& CJsonReaderDefaultHandler::Push(int32_t nKind) {
    if (m_nDepth == m_stack.size()) m_stack.emplace_back();
    StackItem& item = m_stack[m_nDepth++];
    item.name.clear();
    item.index = -1;
    item.kind = nKind;
    return item;
}

void CJsonReaderDefaultHandler::PopThrough(int32_t nKind) {
    while (m_nDepth > 0) {
        bool bFound = Top().kind == nKind;
        Pop();
        if (bFound) return;
    }
}

void CJsonReaderDefaultHandler::StartDocument() {
    DebugTrace("StartDocument\n");
    m_nDepth = 0;
    if (m_pNext) m_pNext->StartDocument();
}

void CJsonReaderDefaultHandler::EndDocument() {
    DebugTrace("EndDocument\n");
    if (m_pNext) m_pNext->EndDocument();
}

void CJsonReaderDefaultHandler::Name(const std::string& strName) {
    DebugTrace("Name: %.*s\n", kTracedBytes, strName.c_str());
    // The previous member's name goes when the next one comes.
    if (m_nDepth > 0 && Top().kind == ItemKind_Name) Pop();
    Push(ItemKind_Name).name.assign(strName);
    if (m_pNext) m_pNext->Name(strName);
}

void CJsonReaderDefaultHandler::String(const std::string& strValue) {
    DebugTrace("String: %.*s\n", kTracedBytes, strValue.c_str());
    if (m_pNext) m_pNext->String(strValue);
}

void CJsonReaderDefaultHandler::Number(const std::string& strValue) {
    DebugTrace("Number: %.*s\n", kTracedBytes, strValue.c_str());
    if (m_pNext) m_pNext->Number(strValue);
}

void CJsonReaderDefaultHandler::Bool(bool bValue) {
    DebugTrace("Bool: %s\n", bValue ? "true" : "false");
    if (m_pNext) m_pNext->Bool(bValue);
}

void CJsonReaderDefaultHandler::Null() {
    DebugTrace("Null\n");
    if (m_pNext) m_pNext->Null();
}

void CJsonReaderDefaultHandler::StartObject() {
    DebugTrace("StartObject\n");
    // The outermost object has no item.
    if (m_nDepth > 0) {
        StackItem& top = Top();
        if (top.kind == ItemKind_Name) {
            // The object takes the member's name, in the member's place.
            top.kind = ItemKind_Object;
        } else if (top.kind == ItemKind_Array) {
            int32_t nIndex = ++top.index;
            std::string strName = top.name;
            StackItem& item = Push(ItemKind_Object);
            item.name.swap(strName);
            item.name.push_back('[');
            item.name.append(std::to_string(nIndex));
            item.name.push_back(']');
        } else {
            Push(ItemKind_Object);
        }
    }
    if (m_pNext) m_pNext->StartObject();
}

void CJsonReaderDefaultHandler::EndObject() {
    DebugTrace("EndObject\n");
    PopThrough(ItemKind_Object);
    if (m_pNext) m_pNext->EndObject();
}

void CJsonReaderDefaultHandler::StartArray() {
    DebugTrace("StartArray\n");
    if (m_nDepth > 0) {
        StackItem& top = Top();
        if (top.kind == ItemKind_Name) {
            // The array takes the member's name, in the member's place.
            top.kind = ItemKind_Array;
            top.index = -1;
        } else {
            Push(ItemKind_Array);
        }
    }
    if (m_pNext) m_pNext->StartArray();
}

void CJsonReaderDefaultHandler::EndArray() {
    DebugTrace("EndArray\n");
    PopThrough(ItemKind_Array);
    if (m_pNext) m_pNext->EndArray();
}

std::string CJsonReaderDefaultHandler::GetErrorPath() {
    std::string strPath = "$";
    for (size_t i = m_nDepth; i-- > 0;) {
        const StackItem& item = m_stack[i];
        if (item.kind == ItemKind_Array) continue;
        strPath.push_back('.');
        strPath.append(item.name);
    }
    return strPath;
}

}  // namespace OrvexXml
