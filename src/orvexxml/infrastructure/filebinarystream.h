#pragma once

#include <string>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/binarystream.h"
#include "orvexxml/infrastructure/encodingtypes.h"
#include "orvexxml/values/binarydata.h"

namespace OrvexXml {

// A binary stream that goes to a file in one piece. The encoding decides only the byte order
// mark: for the UTF-16 encodings FF FE comes first; the content is written as it is.
class ORVEXXML_API CFileBinaryStream : public CBinaryStream {
public:
    CFileBinaryStream(const char* pszFileName, XmlEncoding eEncoding);
    CFileBinaryStream(const char* pszFileName, XmlEncoding eEncoding, const CBinaryData& data);
    ~CFileBinaryStream() override;

    // Creates or truncates the file and writes the mark and the whole content at once. Throws
    // COxException with the system error code when the file can't be opened or written; the
    // file is closed in every case.
    void WriteToFile();

    const std::string& GetFileName() const { return m_strFileName; }
    XmlEncoding GetEncoding() const { return m_eEncoding; }

private:
    std::string m_strFileName;
    XmlEncoding m_eEncoding;
};

}  // namespace OrvexXml
