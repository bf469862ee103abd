#include "orvexxml/infrastructure/filetextstream.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <vector>

#include "orvexxml/infrastructure/filebinarystream.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/textstream.h"
#include "streamtesthelpers.h"

using namespace OrvexXml;
using namespace OrvexStreamTest;

namespace {

using FileTextStream = StreamTest;

// Notes, at each call of Flush that wrote, how many characters it took, how many bytes they make
// in the file's encoding, and how large the file is once the call returns.
class CWatchedFileStream : public CFileTextStream {
public:
    CWatchedFileStream(const std::string& strPath, XmlEncoding eEncoding)
        : CFileTextStream(strPath.c_str(), eEncoding), m_strPath(strPath) {}

    void Flush() override {
        ++m_nCalls;
        const uint32_t nLength = GetLength();
        // Below 64 KB nothing is written; the encoding is measured only where it may be.
        const uint32_t nEncoded = nLength >= 65536 ? GetEncodedData().GetLength() : 0;
        CFileTextStream::Flush();
        if (GetLength() < nLength) m_vecWrites.push_back({nLength, nEncoded, FileSize(m_strPath)});
    }

    struct SWrite {
        uint32_t nCharacters, nEncoded;
        long long nFileSize;
    };
    std::string m_strPath;
    int m_nCalls = 0;
    std::vector<SWrite> m_vecWrites;
};

TEST(AsyncToXmlFileSwitch, IsOffAtLoad) { EXPECT_FALSE(GetAsyncToXmlFile()); }

TEST_F(FileTextStream, ManyWritesAtTheirOffsetsGiveTheWholeText) {
    for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration}) {
        SCOPED_TRACE(static_cast<int>(eEncoding));
        const std::string strPath = Path("many.xml");
        std::string strUtf8;
        std::u16string strUnits = u"\uFEFF";
        {
            CWatchedFileStream stream(strPath, eEncoding);
            stream.Start();
            // Flushed as a text writer does: after each value once 4096 characters are buffered.
            for (int i = 0; i < 40000; ++i) {
                const std::string strNumber = std::to_string(i);
                stream.WriteString("<i n=\"" + strNumber + "\">caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80</i>");
                strUtf8 += "<i n=\"" + strNumber + "\">caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80</i>";
                strUnits += u"<i n=\"" + std::u16string(strNumber.begin(), strNumber.end()) +
                            u"\">caf\u00E9 \u20AC \U0001F600</i>";
                if (stream.GetLength() >= 4096) stream.Flush();
            }
            stream.End();
            ASSERT_GT(stream.m_vecWrites.size(), 10u);
            EXPECT_GT(stream.m_nCalls, 1000);  // the flushes below one write were gathered
            // Each write waits for the one before it, so once a Flush has written, the file holds
            // at least all the text of the earlier writes, and never more than has been written.
            long long nBefore = eEncoding == XmlEncoding_UTF8 ? 0 : 2;
            for (const auto& w : stream.m_vecWrites) {
                EXPECT_GE(w.nFileSize, nBefore);
                nBefore += w.nEncoded;
                EXPECT_LE(w.nFileSize, nBefore);
                EXPECT_GE(w.nCharacters, 65536u);
                EXPECT_LT(w.nCharacters, 65536u + 200u);
            }
        }
        EXPECT_TRUE(ReadFile(strPath) == (eEncoding == XmlEncoding_UTF8 ? strUtf8 : Utf16Le(strUnits)))
            << "the file differs from the text written";
    }
}

TEST_F(FileTextStream, PiecesFlushedOneByOneGiveExactBytes) {
    const std::string strA(70000, 'a'), strD(70000, 'd');
    const std::u16string strA16(70000, u'a'), strD16(70000, u'd');
    const struct {
        unsigned int nCodePage;
        XmlEncoding eEncoding;
        std::vector<std::pair<std::string, uint32_t>> vecPieces;  // each with the length left after Flush
        std::string strFile;
    } cases[] = {
        // Below one write the text reaches the file only at End; the mark comes once, at Start.
        {65001, XmlEncoding_UTF8, {{"<a>\xC3\xA9</a>", 9}}, "<a>\xC3\xA9</a>"},
        {65001,
         XmlEncoding_UTF16,
         {{"a\xC3\xA9", 3}, {"\xF0\x9F\x98\x80", 7}, {"z", 8}},
         Utf16Le(u"\uFEFFa\u00E9\U0001F600z")},
        {65001, XmlEncoding_UTF16NoDeclaration, {}, "\xFF\xFE"},
        {65001, XmlEncoding_UTF8, {}, ""},
        // An incomplete character at the very end is replaced at End.
        {65001, XmlEncoding_UTF16, {{"x\xE2\x82", 3}}, Utf16Le(u"\uFEFFx\uFFFD")},
        // A character split between writes waits for its rest, so it stays whole in UTF-16.
        {65001,
         XmlEncoding_UTF16,
         {{strA + "b\xF0\x9F", 2}, {"\x98\x80" + ("c" + strD) + "\xC3", 1}, {"\xA9", 2}},
         Utf16Le(u"\uFEFF" + strA16 + u"b\U0001F600c" + strD16 + u"\u00E9")},
        // Local text of code page 1252 is converted at each write.
        {1252, XmlEncoding_UTF8, {{"caf\xE9" + strA, 0}, {" \x80", 2}}, "caf\xC3\xA9" + strA + " \xE2\x82\xAC"},
        {1252,
         XmlEncoding_UTF16,
         {{"caf\xE9" + strA, 0}, {" \x80", 2}},
         Utf16Le(u"\uFEFFcaf\u00E9" + strA16 + u" \u20AC")},
    };
    const std::string strPath = Path("pieces.xml");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.strFile.size());
        SetLocalCharEncoding(c.nCodePage);
        WriteFile(strPath, std::string(200000, 'z'));  // truncated by Start
        CFileTextStream stream(strPath.c_str(), c.eEncoding);
        stream.Start();
        // While all the text is still buffered, the file holds at most the mark.
        const long long nMark = c.eEncoding == XmlEncoding_UTF8 ? 0 : 2;
        size_t nTotal = 0;
        EXPECT_LE(FileSize(strPath), nMark);
        for (const auto& piece : c.vecPieces) {
            stream.WriteString(piece.first);
            stream.Flush();
            EXPECT_EQ(piece.second, stream.GetLength());
            nTotal += piece.first.size();
            if (stream.GetLength() == nTotal) {
                EXPECT_LE(FileSize(strPath), nMark);
            }
        }
        stream.End();
        EXPECT_EQ(static_cast<long long>(c.strFile.size()), FileSize(strPath));
        EXPECT_TRUE(c.strFile == ReadFile(strPath));
    }
    // Started again, the stream writes a fresh file.
    CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF16);
    stream.Start();
    stream.WriteString("first run, longer");
    stream.End();
    stream.Start();
    stream.WriteString("2nd");
    stream.End();
    EXPECT_EQ(Utf16Le(u"\uFEFF2nd"), ReadFile(strPath));
}

TEST_F(FileTextStream, BufferIsReusedSoMemoryStaysFlatOver100MB) {
    const std::string strPath = Path("big.xml");
    const std::string strPiece = "<item n=\"0123456789\">caf\xC3\xA9 and some more text to fill the line</item>\n";
    const long long nPiece = static_cast<long long>(strPiece.size());
    long long nWritten = 0;
    long lBaseline = -1, lPeak = 0;
    int nFlushes = 0;
    {
        CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF8);
        stream.Start();
        for (; nWritten < 100LL * 1024 * 1024; nWritten += nPiece) {
            stream.WriteString(strPiece);
            if (stream.GetLength() < 4096) continue;
            stream.Flush();
            ASSERT_LT(stream.GetLength(), 65536u);
            if (++nFlushes % 256 == 0) {
                const long lNow = ResidentKilobytes();
                if (lBaseline < 0) lBaseline = lNow;
                if (lNow > lPeak) lPeak = lNow;
            }
        }
        stream.End();
    }
    ASSERT_GT(lBaseline, 0);
#if !defined(__SANITIZE_ADDRESS__)
    // (AddressSanitizer holds freed memory back in quarantine, which defeats this measure.)
    EXPECT_LT(lPeak - lBaseline, 8 * 1024) << "resident memory grew by " << (lPeak - lBaseline) << " kB";
#endif
    EXPECT_EQ(nWritten, FileSize(strPath));
}

// --- failures --------------------------------------------------------------------------------

TEST_F(FileTextStream, OpenFailuresOfBothFileStreamsTellTheFileAndTheSystemCode) {
    WriteFile(Path("plain"), "x");
    ASSERT_EQ(0, ::mkdir(Path("folder").c_str(), 0755));
    const struct {
        std::string strPath;
        const char* pszCode;
    } cases[] = {
        {Path("missing/doc.xml"), "0x00000002"},  // no such folder
        {Path("plain/doc.xml"), "0x00000014"},    // a file where a folder should be
        {Path("folder"), "0x00000015"},           // a folder where the file should be
        {"/dev/full", "0x0000001C"},              // opens, but every write fails: no space left (binary stream only)
    };
    const int nDescriptors = OpenDescriptors();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.strPath);
        const std::string strMessage = "Failed to write data to the file [" + c.strPath + "] error [" + c.pszCode + "]";
        for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16}) {
            CFileBinaryStream binary(c.strPath.c_str(), eEncoding, CBinaryData("<a/>"));
            ExpectOxException([&]() { binary.WriteToFile(); }, strMessage);
            EXPECT_EQ(nDescriptors, OpenDescriptors());
            if (c.strPath == "/dev/full") continue;
            CFileTextStream text(c.strPath.c_str(), eEncoding);
            ExpectOxException([&]() { text.Start(); }, strMessage);
            EXPECT_EQ(nDescriptors, OpenDescriptors());
        }
    }
}

TEST_F(FileTextStream, FailedWriteTellsTheSystemCodeAndClosesTheFile) {
    const int nDescriptors = OpenDescriptors();
    // Every write to /dev/full fails with "no space left" (28).
    {
        CFileTextStream stream("/dev/full", XmlEncoding_UTF8);
        stream.Start();
        EXPECT_EQ(nDescriptors + 1, OpenDescriptors());
        stream.WriteString(std::string(70000, 'a'));
        stream.Flush();  // the write is under way; its outcome comes with the next wait
        EXPECT_EQ(0u, stream.GetLength());
        stream.WriteString("b");
        ExpectOxException([&]() { stream.End(); }, "Failed to write data to the file. Error [0x0000001C]");
        EXPECT_EQ(nDescriptors, OpenDescriptors());

        // The descriptor number may now serve someone else: the stream must not use or close it again.
        const int hOther = ::open("/dev/null", O_RDONLY);
        ASSERT_GE(hOther, 0);
        stream.WriteString("c");
        ExpectOxException([&]() { stream.End(); }, "Failed to write data to the file. Error [0x00000009]");
        EXPECT_NE(-1, ::fcntl(hOther, F_GETFD));
        ::close(hOther);
    }
    // The mark of a UTF-16 file fails the same way, at the first wait.
    {
        CFileTextStream stream("/dev/full", XmlEncoding_UTF16);
        stream.Start();
        stream.WriteString("a");
        ExpectOxException([&]() { stream.End(); }, "Failed to write data to the file. Error [0x0000001C]");
        EXPECT_EQ(nDescriptors, OpenDescriptors());
    }
    EXPECT_EQ(nDescriptors, OpenDescriptors());
}

TEST_F(FileTextStream, WritingBeforeStartFailsWithoutTouchingAnyFile) {
    const std::string strPath = Path("never.xml");
    CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF8);
    stream.WriteString(std::string(70000, 'a'));
    ExpectOxException([&]() { stream.Flush(); }, "Failed to write data to the file. Error [0x00000009]");
    CFileTextStream small(strPath.c_str(), XmlEncoding_UTF8);
    small.WriteString("<a/>");
    ExpectOxException([&]() { small.End(); }, "Failed to write data to the file. Error [0x00000009]");
    EXPECT_EQ(-1, FileSize(strPath));
}

TEST_F(FileTextStream, StreamWithoutEncodingFailsAtTheFirstFlushAndClosesTheFile) {
    const std::string strPath = Path("none.xml");
    const int nDescriptors = OpenDescriptors();
    CFileTextStream stream(strPath.c_str(), XmlEncoding_None);
    stream.Start();
    stream.WriteString("<a/>");
    ExpectOxException([&]() { stream.End(); }, "Unknown Encoding, select UTF-8 (contact our support team)");
    EXPECT_EQ(nDescriptors, OpenDescriptors());
    EXPECT_EQ(0, FileSize(strPath));
}

TEST_F(FileTextStream, DestroyedWithAWriteInFlightLeavesNoDescriptor) {
    const std::string strPath = Path("abandoned.xml");
    const int nDescriptors = OpenDescriptors();
    {
        CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF16);
        stream.Start();
        stream.WriteString(std::string(200000, 'q'));
        stream.Flush();
        stream.WriteString("never written");
    }
    EXPECT_EQ(nDescriptors, OpenDescriptors());
    // The text of the last flush went out completely or not at all; the rest never did.
    EXPECT_LE(FileSize(strPath), 2 + 400000);
}

}  // namespace
