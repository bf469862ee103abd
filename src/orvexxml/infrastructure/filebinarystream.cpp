#include "orvexxml/infrastructure/filebinarystream.h"

#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

namespace {

const unsigned char s_byteOrderMark[2] = {0xFF, 0xFE};

// Writes all bytes of the pieces, going on after short writes. 0, or the system error code.
int WriteAll(int hFile, struct iovec* pPieces, int nPieces) {
    while (nPieces > 0) {
        const ssize_t nWritten = ::writev(hFile, pPieces, nPieces);
        if (nWritten < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        if (nWritten == 0) return EIO;
        size_t nLeft = static_cast<size_t>(nWritten);
        while (nPieces > 0 && nLeft >= pPieces->iov_len) {
            nLeft -= pPieces->iov_len;
            ++pPieces;
            --nPieces;
        }
        if (nPieces > 0) {
            pPieces->iov_base = static_cast<char*>(pPieces->iov_base) + nLeft;
            pPieces->iov_len -= nLeft;
        }
    }
    return 0;
}

}  // namespace

CFileBinaryStream::CFileBinaryStream(const char* pszFileName, XmlEncoding eEncoding)
    : CBinaryStream("CFileBinaryStream", CBinaryData()),
      m_strFileName(pszFileName != nullptr ? pszFileName : ""),
      m_eEncoding(eEncoding) {}

CFileBinaryStream::CFileBinaryStream(const char* pszFileName, XmlEncoding eEncoding, const CBinaryData& data)
    : CBinaryStream("CFileBinaryStream", data),
      m_strFileName(pszFileName != nullptr ? pszFileName : ""),
      m_eEncoding(eEncoding) {}

CFileBinaryStream::~CFileBinaryStream() {}

void CFileBinaryStream::WriteToFile() {
    const int hFile = ::open(m_strFileName.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (hFile < 0) {
        const int nError = errno;
        throw COxException(FormatString("Failed to write data to the file [%s] error [0x%08X]", m_strFileName.c_str(),
                                        static_cast<unsigned int>(nError)));
    }
    ::posix_fadvise(hFile, 0, 0, POSIX_FADV_SEQUENTIAL);

    // The mark and the content go out in one call.
    struct iovec pieces[2];
    int nPieces = 0;
    if (m_eEncoding == XmlEncoding_UTF16 || m_eEncoding == XmlEncoding_UTF16NoDeclaration) {
        pieces[nPieces].iov_base = const_cast<unsigned char*>(s_byteOrderMark);
        pieces[nPieces].iov_len = sizeof(s_byteOrderMark);
        ++nPieces;
    }
    if (m_data.GetLength() != 0) {
        pieces[nPieces].iov_base = const_cast<unsigned char*>(m_data.GetData());
        pieces[nPieces].iov_len = m_data.GetLength();
        ++nPieces;
    }
    int nError = WriteAll(hFile, pieces, nPieces);
    // Some file systems report a failed write only when the file is closed.
    if (::close(hFile) != 0 && nError == 0 && errno != EINTR) nError = errno;
    if (nError != 0) {
        throw COxException(FormatString("Failed to write data to the file [%s] error [0x%08X]", m_strFileName.c_str(),
                                        static_cast<unsigned int>(nError)));
    }
}

}  // namespace OrvexXml
