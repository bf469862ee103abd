#include "orvexxml/json/jsontextreader.h"

#include <cstring>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/json/jsonreadertoxmlhandler.h"
#include "orvexxml/values/whitespaceutils.h"
#include "orvexxml/writers/xmltextwriter.h"

namespace OrvexXml {

namespace {

const char* const g_pszDepth = "JSON exceeded depth limit at line %d, position %d.";
const char* const g_pszValue =
    "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '%c' at line %d, position %d.";
const char* const g_pszArrayEnd =
    "Unexpected End of File. Expected Array terminator character ']' at line %d, position %d.";
const char* const g_pszArraySeparator = "Expected Array separator character ',', found '%c' at line %d, position %d.";
// The doubled brace is the message's own text, not a format directive.
const char* const g_pszObjectEndFirst =
    "Unexpected End of File. Expected Object terminator character '}}' at line %d, position %d.";
const char* const g_pszNameQuote =
    "Expected quotation mark character '\"' before Name, found '%c' at line %d, position %d.";
const char* const g_pszColonEnd =
    "Unexpected End of File. Expected Object Name/Value separator character ':' at line %d, position %d.";
const char* const g_pszColon =
    "Expected Object Name/Value separator character ':', found '%c' at line %d, position %d.";
const char* const g_pszMemberValueEnd = "Unexpected End of File. Expected Object Value at line %d, position %d.";
const char* const g_pszObjectEnd =
    "Unexpected End of File. Expected Object terminator character '}' at line %d, position %d.";
const char* const g_pszObjectSeparator = "Expected Object separator character ',', found '%c' at line %d, position %d.";
const char* const g_pszStringEnd = "Unexpected End of File. Expected string value at line %d, position %d.";
const char* const g_pszHexEnd =
    "Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx' at line %d, position %d.";
const char* const g_pszEscape = "Invalid Escape Character '%c' at line %d, position %d.";
const char* const g_pszNumberEnd = "Unexpected End of File. Expected a number at line %d, position %d.";
const char* const g_pszDigit = "Expected a digit '0' to '9', found '%c' at line %d, position %d.";
const char* const g_pszDigitEnd = "Unexpected End of File. Expected a digit '0' to '9' at line %d, position %d.";
const char* const g_pszExponentEnd = "Unexpected End of File. Expected '+', '-' or a number at line %d, position %d.";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The value of a hexadecimal digit, or -1.
int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// The code unit of four hexadecimal digits, or -1 with the index of the first bad digit.
int32_t HexUnit(const char* p, int& nBad) {
    int32_t nUnit = 0;
    for (int i = 0; i < 4; ++i) {
        int nDigit = HexValue(p[i]);
        if (nDigit < 0) {
            nBad = i;
            return -1;
        }
        nUnit = nUnit * 16 + nDigit;
    }
    return nUnit;
}

}  // namespace

CJsonTextReader::CJsonTextReader(const std::string& strText) : CJsonTextReader(std::string_view(strText)) {}

CJsonTextReader::CJsonTextReader(std::string_view text)
    : CInstanceMonitor("CJsonTextReader"),
      m_pHandler(new CJsonReaderDefaultHandler),
      m_nMaxDepth(100),
      m_bAllowComments(true),
      m_text(text),
      m_nPos(0),
      m_chCurrent('\0'),
      m_bEOF(false),
      m_nLine(1),
      m_nPosition(0) {}

CJsonTextReader::~CJsonTextReader() { delete m_pHandler; }

void CJsonTextReader::SetHandler(IJsonReaderHandler* pHandler) { m_pHandler->SetNextHandler(pHandler); }

void CJsonTextReader::ApplyContext(const CJsonContext& context) {
    m_bAllowComments = context.GetAllowComments();
    m_strRootElementName = context.GetRootElementName();
}

void CJsonTextReader::Parse() {
    m_nPos = 0;
    m_bEOF = false;
    m_nLine = 1;
    m_nPosition = 0;
    m_pHandler->StartDocument();
    bool bRoot = !m_strRootElementName.empty();
    if (bRoot) {
        m_pHandler->StartObject();
        m_pHandler->Name(m_strRootElementName);
    }
    if (ReadChar(true)) ParseValue(0);
    if (bRoot) m_pHandler->EndObject();
    m_pHandler->EndDocument();
}

CBinaryData CJsonTextReader::ConvertToXml(std::string_view strText, const CSerializationContext& context) {
    const CJsonContext& json = context.GetJsonContext();
    CTextStream stream(XmlEncoding_UTF8);
    stream.KeepContiguous(strText.size() + strText.size() / 4);
    CXmlTextWriter writer(&stream);
    writer.StartDocument();
    // The text is for the XML parser alone: no indentation, which would also put white space
    // into mixed content. Bytes that XML can't carry (a null byte or other control bytes from
    // a \u escape) are refused by the writer with their offset instead of being cut or left
    // for the parser to stumble over.
    writer.SetFormatted(false);
    writer.SetCheckCharacters(true);
    CJsonTextReader reader(strText);
    reader.SetHandler(new CJsonReaderToXmlHandler(&writer, json.GetSupportRoundtrip(), reader.GetErrorPathProvider()));
    reader.ApplyContext(json);
    reader.Parse();
    writer.EndDocument();
    return stream.GetEncodedData();
}

// Delivers the next byte in m_chCurrent. Line feeds are counted and never delivered; with
// bSkip, white space and (when allowed) comments are passed over too. A run of comments is
// skipped by this loop, not by recursion, so that its length costs no stack.
bool CJsonTextReader::ReadChar(bool bSkip) {
    const std::string_view strText = m_text;
    const size_t nLength = strText.size();
    for (;;) {
        if (m_nPos >= nLength) {
            m_bEOF = true;
            return false;
        }
        char ch = strText[m_nPos++];
        ++m_nPosition;
        if (ch == '\n') {
            ++m_nLine;
            m_nPosition = 0;
            continue;
        }
        if (bSkip && CWhitespaceUtils::IsWhiteSpace(ch)) continue;
        m_chCurrent = ch;
        if (!bSkip || !m_bAllowComments || ch != '/') return true;
        if (!SkipComment()) return true;
        if (m_bEOF) return false;
    }
}

// With "/" in m_chCurrent: skips the comment that it opens and tells whether there was one.
// A comment that runs to the end of the text sets m_bEOF. Anything else after the "/" leaves
// it in m_chCurrent for the caller to refuse.
bool CJsonTextReader::SkipComment() {
    const std::string_view strText = m_text;
    const size_t nLength = strText.size();
    char chNext = m_nPos < nLength ? strText[m_nPos] : '\0';
    if (chNext == '/') {
        ++m_nPos;
        while (m_nPos < nLength && strText[m_nPos] != '\n') ++m_nPos;
        if (m_nPos >= nLength) {
            m_bEOF = true;
            return true;
        }
        ++m_nPos;
        ++m_nLine;
        m_nPosition = 0;
        return true;
    }
    if (chNext == '*') {
        ++m_nPos;
        do {
            if (!ReadChar(false)) return true;
        } while (m_chCurrent != '*' || m_nPos >= nLength || strText[m_nPos] != '/');
        ++m_nPos;
        ++m_nPosition;
        return true;
    }
    return false;
}

bool CJsonTextReader::ReadChars(char* pBuffer, int32_t nCount) {
    const std::string_view strText = m_text;
    size_t nAvailable = strText.size() - m_nPos;
    size_t nTaken = nAvailable < static_cast<size_t>(nCount) ? nAvailable : static_cast<size_t>(nCount);
    std::memcpy(pBuffer, strText.data() + m_nPos, nTaken);
    m_nPos += nTaken;
    m_nPosition += static_cast<int32_t>(nTaken);
    if (nTaken < static_cast<size_t>(nCount)) {
        m_bEOF = true;
        return false;
    }
    m_chCurrent = pBuffer[nCount - 1];
    return true;
}

void CJsonTextReader::ParseValue(int32_t nDepth) {
    ++nDepth;
    if (nDepth > m_nMaxDepth) FailAt(g_pszDepth);
    switch (m_chCurrent) {
        case '{':
            m_pHandler->StartObject();
            ParseObject(nDepth);
            m_pHandler->EndObject();
            break;
        case '[':
            m_pHandler->StartArray();
            ParseArray(nDepth);
            m_pHandler->EndArray();
            break;
        case '"': {
            std::string strValue = ParseString();
            m_pHandler->String(strValue);
            break;
        }
        case 'n':
            ParseWord("ull", 3, "Unexpected End of File. Expected value 'NULL' at line %d, position %d.",
                      "Expected 'NULL' at line %d, position %d.");
            m_pHandler->Null();
            break;
        case 't':
            ParseWord("rue", 3, "Unexpected End of File. Expected value 'true' at line %d, position %d.",
                      "Expected 'true' at line %d, position %d.");
            m_pHandler->Bool(true);
            break;
        case 'f':
            ParseWord("alse", 4, "Unexpected End of File. Expected value 'false' at line %d, position %d.",
                      "Expected 'false' at line %d, position %d.");
            m_pHandler->Bool(false);
            break;
        default: {
            if (m_chCurrent != '-' && !IsDigit(m_chCurrent)) FailWithChar(g_pszValue);
            std::string strValue = ParseNumber();
            m_pHandler->Number(strValue);
            break;
        }
    }
}

void CJsonTextReader::ParseArray(int32_t nDepth) {
    if (!ReadChar(true)) FailAt(g_pszArrayEnd);
    if (m_chCurrent == ']') {
        ReadChar(true);
        return;
    }
    for (;;) {
        ParseValue(nDepth);
        if (m_bEOF) FailAt(g_pszArrayEnd);
        if (m_chCurrent == ']') {
            ReadChar(true);
            return;
        }
        if (m_chCurrent != ',') FailWithChar(g_pszArraySeparator);
        if (!ReadChar(true)) FailAt(g_pszArrayEnd);
    }
}

void CJsonTextReader::ParseObject(int32_t nDepth) {
    if (!ReadChar(true)) FailAt(g_pszObjectEndFirst);
    if (m_chCurrent == '}') {
        ReadChar(true);
        return;
    }
    for (;;) {
        if (m_chCurrent != '"') FailWithChar(g_pszNameQuote);
        // The name goes out before its separator is checked.
        std::string strName = ParseString();
        m_pHandler->Name(strName);
        if (m_bEOF) FailAt(g_pszColonEnd);
        if (m_chCurrent != ':') FailWithChar(g_pszColon);
        if (!ReadChar(true)) FailAt(g_pszMemberValueEnd);
        ParseValue(nDepth);
        if (m_bEOF) FailAt(g_pszObjectEnd);
        if (m_chCurrent == '}') {
            ReadChar(true);
            return;
        }
        if (m_chCurrent != ',') FailWithChar(g_pszObjectSeparator);
        if (!ReadChar(true)) FailAt(g_pszObjectEnd);
    }
}

// Starts on the opening quote and ends on the first byte behind the closing one, white space
// and comments passed over. Bytes other than escapes, control bytes and bytes from 0x80 up
// included, are kept as they are.
std::string CJsonTextReader::ParseString() {
    std::string strValue;
    const std::string_view text = m_text;
    for (;;) {
        // A run of plain bytes goes in as one piece; the bytes that need a look (the quote,
        // an escape, a line feed) and the end of the text go through ReadChar.
        size_t nRun = m_nPos;
        while (nRun < text.size() && text[nRun] != '"' && text[nRun] != '\\' && text[nRun] != '\n') ++nRun;
        if (nRun > m_nPos) {
            strValue.append(text.data() + m_nPos, nRun - m_nPos);
            m_nPosition += static_cast<int32_t>(nRun - m_nPos);
            m_nPos = nRun;
            m_chCurrent = text[nRun - 1];
        }
        if (!ReadChar(false)) FailAt(g_pszStringEnd);
        if (m_chCurrent == '"') break;
        if (m_chCurrent != '\\') {
            strValue += m_chCurrent;
            continue;
        }
        if (!ReadChar(false)) FailAt(g_pszStringEnd);
        switch (m_chCurrent) {
            case '"':
            case '\\':
            case '/':
                strValue += m_chCurrent;
                break;
            case 'b':
                strValue += '\x08';
                break;
            case 'f':
                strValue += '\x0C';
                break;
            case 'n':
                strValue += '\x0A';
                break;
            case 'r':
                strValue += '\x0D';
                break;
            case 't':
                strValue += '\x09';
                break;
            case 'u':
                ParseUnicodeEscape(strValue);
                break;
            default:
                FailWithChar(g_pszEscape);
        }
    }
    ReadChar(true);
    return strValue;
}

// Behind "\u": four hexadecimal digits name a UTF-16 code unit. Units below 0x80 are the byte
// itself (the writer escapes the control bytes this way); others, and a high surrogate with
// an escaped low one right behind it, become the character in the local encoding. A lone
// surrogate is converted as the local encoding converts one.
void CJsonTextReader::ParseUnicodeEscape(std::string& strValue) {
    char achDigits[4];
    if (!ReadChars(achDigits, 4)) FailAt(g_pszHexEnd);
    int nBad = 0;
    int32_t nUnit = HexUnit(achDigits, nBad);
    // A digit that is none is refused as an escape character, at its own position.
    if (nUnit < 0) Fail(FormatString(g_pszEscape, achDigits[nBad], m_nLine, m_nPosition - 3 + nBad));
    if (nUnit < 0x80) {
        strValue += static_cast<char>(nUnit);
        return;
    }
    char16_t achUnits[2] = {static_cast<char16_t>(nUnit), 0};
    size_t nUnits = 1;
    const std::string_view strText = m_text;
    if (nUnit >= 0xD800 && nUnit <= 0xDBFF && strText.size() - m_nPos >= 6 && strText[m_nPos] == '\\' &&
        strText[m_nPos + 1] == 'u') {
        int32_t nLow = HexUnit(strText.data() + m_nPos + 2, nBad);
        if (nLow >= 0xDC00 && nLow <= 0xDFFF) {
            char achPair[6];
            ReadChars(achPair, 6);
            achUnits[1] = static_cast<char16_t>(nLow);
            nUnits = 2;
        }
    }
    strValue += Utf16ToLocal(achUnits, nUnits);
}

void CJsonTextReader::ParseWord(const char* pszRest, int32_t nLength, const char* pszEndMessage,
                                const char* pszWrongMessage) {
    char achWord[4];
    if (!ReadChars(achWord, nLength)) FailAt(pszEndMessage);
    if (std::memcmp(achWord, pszRest, static_cast<size_t>(nLength)) != 0) FailAt(pszWrongMessage);
    ReadChar(true);
}

std::string CJsonTextReader::ParseNumber() {
    std::string strValue;
    if (m_chCurrent == '-') {
        strValue += m_chCurrent;
        if (!ReadChar(false)) FailAt(g_pszNumberEnd);
    }
    if (m_chCurrent == '0') {
        // A leading zero is the whole integer part; a digit behind it is left to the caller.
        strValue += m_chCurrent;
        ReadChar(false);
    } else {
        if (m_chCurrent < '1' || m_chCurrent > '9') FailWithChar(g_pszDigit);
        ReadDigits(strValue);
    }
    if (!m_bEOF && m_chCurrent == '.') {
        strValue += m_chCurrent;
        if (!ReadChar(false)) FailAt(g_pszDigitEnd);
        if (!IsDigit(m_chCurrent)) FailWithChar(g_pszDigit);
        ReadDigits(strValue);
    }
    if (!m_bEOF && (m_chCurrent == 'e' || m_chCurrent == 'E')) {
        strValue += m_chCurrent;
        if (!ReadChar(false)) FailAt(g_pszExponentEnd);
        if (m_chCurrent == '+' || m_chCurrent == '-') {
            strValue += m_chCurrent;
            if (!ReadChar(false)) FailAt(g_pszNumberEnd);
        }
        if (!IsDigit(m_chCurrent)) FailWithChar(g_pszDigit);
        ReadDigits(strValue);
    }
    if (!m_bEOF && CWhitespaceUtils::IsWhiteSpace(m_chCurrent)) ReadChar(true);
    return strValue;
}

void CJsonTextReader::ReadDigits(std::string& strValue) {
    do {
        strValue += m_chCurrent;
    } while (ReadChar(false) && IsDigit(m_chCurrent));
}

void CJsonTextReader::Fail(const std::string& strMessage) const {
    throw COxValidationException(strMessage, m_pHandler->GetErrorPath());
}

void CJsonTextReader::FailAt(const char* pszFormat) const { Fail(FormatString(pszFormat, m_nLine, m_nPosition)); }

void CJsonTextReader::FailWithChar(const char* pszFormat) const {
    Fail(FormatString(pszFormat, m_chCurrent, m_nLine, m_nPosition));
}

}  // namespace OrvexXml
