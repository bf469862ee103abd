#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/json/errorpathprovider.h"
#include "orvexxml/json/jsonreaderdefaulthandler.h"
#include "orvexxml/json/jsonreaderhandler.h"
#include "orvexxml/values/binarydata.h"
#include "orvexxml/writers/jsoncontext.h"

namespace OrvexXml {

class CSerializationContext;

// A recursive-descent JSON parser that walks narrow text in place, byte by byte, and reports
// what it finds to a handler. It builds nothing itself.
//
// Beyond plain JSON it skips "//" and "/* */" comments wherever white space may stand
// (unless the context switches them off). Values nest at most m_nMaxDepth levels deep; the
// outermost value is level 1 and a scalar counts as a level. Text behind the first value is
// not looked at. A raw line feed is never delivered: inside a string or a number it is
// dropped. Every syntax error is a COxValidationException whose message names the line and
// the byte position on it, and whose path is that of the handler chain's head when it
// implements IErrorPathProvider.
//
// Every event passes the CJsonReaderDefaultHandler first, which keeps the path that failures
// name, and then the handler installed behind it.
//
// Usage: construct on the text (which must outlive the reader and not change), SetHandler,
// optionally ApplyContext, Parse; or ConvertToXml for the whole way to XML text.
class ORVEXXML_API CJsonTextReader : public CInstanceMonitor {
public:
    explicit CJsonTextReader(const std::string& strText);
    // The same on text held elsewhere, which must outlive the reader and not change.
    explicit CJsonTextReader(std::string_view text);
    ~CJsonTextReader() override;
    CJsonTextReader(const CJsonTextReader&) = delete;
    CJsonTextReader& operator=(const CJsonTextReader&) = delete;

    // Installs the handler that receives the events behind the default handler, which takes
    // ownership; a previous one is deleted. Without a handler the text is only checked.
    void SetHandler(IJsonReaderHandler* pHandler);
    // The default handler's path service.
    IErrorPathProvider* GetErrorPathProvider() const { return m_pHandler; }
    // Takes over whether comments are allowed and the root element name.
    void ApplyContext(const CJsonContext& context);

    // Reports the events of the text: StartDocument, the first value (inside an object with
    // one member named after the root element when one is set), EndDocument.
    void Parse();

    // Converts JSON text in the local encoding to an XML document in UTF-8, by the reverse of
    // the JSON writer's mapping in the context's JsonRoundTrip mode (CJsonReaderToXmlHandler),
    // with the context's comment switch and root element name.
    static CBinaryData ConvertToXml(std::string_view strText, const CSerializationContext& context);

private:
    bool ReadChar(bool bSkip);
    bool ReadChars(char* pBuffer, int32_t nCount);
    bool SkipComment();
    void ParseValue(int32_t nDepth);
    void ParseArray(int32_t nDepth);
    void ParseObject(int32_t nDepth);
    std::string ParseString();
    void ParseUnicodeEscape(std::string& strValue);
    void ParseWord(const char* pszRest, int32_t nLength, const char* pszEndMessage, const char* pszWrongMessage);
    std::string ParseNumber();
    // Appends the digits that follow the current one.
    void ReadDigits(std::string& strValue);
    // Throws COxValidationException with the message and the current error path.
    [[noreturn]] void Fail(const std::string& strMessage) const;
    [[noreturn]] void FailAt(const char* pszFormat) const;
    [[noreturn]] void FailWithChar(const char* pszFormat) const;

    CJsonReaderDefaultHandler* m_pHandler;
    int32_t m_nMaxDepth;
    bool m_bAllowComments;
    std::string m_strRootElementName;
    std::string_view m_text;
    // An index wide enough for any text in memory; line and position are what messages show.
    size_t m_nPos;
    char m_chCurrent;
    bool m_bEOF;
    int32_t m_nLine;
    int32_t m_nPosition;
};

}  // namespace OrvexXml
