#include "orvexxml/infrastructure/filetextstream.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/writers/xmltextwriter.h"
#include "streamtesthelpers.h"

using namespace OrvexXml;
using namespace OrvexStreamTest;

namespace {

class FileTextStream : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_folder.IsValid()); }
    void TearDown() override {
        SetLocalCharEncoding(ORVEXXML_CP_UTF8);
        ASCIIOnly(false);
    }
    CScratchFolder m_folder;
};

// A file stream that notes, at each call of Flush, whether the call wrote, how many bytes the
// text it wrote makes in the file's encoding, and how large the file is once the call returns.
class CWatchedFileStream : public CFileTextStream {
public:
    CWatchedFileStream(const std::string& strPath, XmlEncoding eEncoding)
        : CFileTextStream(strPath.c_str(), eEncoding), m_strPath(strPath), m_nCalls(0) {}

    void Flush() override {
        ++m_nCalls;
        const uint32_t nLength = GetLength();
        // Below 64 KB nothing is written; the encoding is measured only where it may be.
        const uint32_t nEncoded = nLength >= 65536 ? GetEncodedData().GetLength() : 0;
        CFileTextStream::Flush();
        if (GetLength() < nLength) {
            m_vecWrittenLengths.push_back(nLength);
            m_vecEncodedLengths.push_back(nEncoded);
            m_vecFileSizes.push_back(FileSize(m_strPath));
        }
    }

    std::string m_strPath;
    int m_nCalls;
    std::vector<uint32_t> m_vecWrittenLengths;  // characters taken by the calls that wrote
    std::vector<uint32_t> m_vecEncodedLengths;  // the same in bytes of the file's encoding
    std::vector<long long> m_vecFileSizes;
};

// The walk of a writer over a list of items with text that is not all ASCII.
void WriteItems(CXmlTextWriter& writer, int nItems) {
    writer.StartDocument();
    writer.WriteHeader();
    writer.WriteStartElement("list", "urn:x");
    for (int i = 0; i < nItems; ++i) {
        writer.WriteStartElement("item", "urn:x");
        writer.WriteAttribute("n", "", std::to_string(i), ItemType_string);
        writer.WriteElementText("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 & <" + std::to_string(i * 7) + ">",
                                ItemType_string, false);
        writer.WriteEndElement();
    }
    writer.WriteEndElement();
    writer.EndDocument();
}

// The bytes of the in-memory route: the whole document in a memory stream, encoded at once,
// with the mark in front for UTF-16.
std::string InMemoryBytes(XmlEncoding eEncoding, int nItems) {
    CTextStream memory(eEncoding);
    CXmlTextWriter writer(&memory);
    WriteItems(writer, nItems);
    const std::string strMark = eEncoding == XmlEncoding_UTF8 ? "" : "\xFF\xFE";
    return strMark + Bytes(memory.GetEncodedData());
}

void ExpectException(const std::function<void()>& fn, const std::string& strMessage) {
    try {
        fn();
        ADD_FAILURE() << "no exception; expected: " << strMessage;
    } catch (const COxException& e) {
        EXPECT_EQ(typeid(COxException), typeid(e));
        EXPECT_EQ(strMessage, e.GetMessage());
    }
}

// --- the switch ------------------------------------------------------------------------------

TEST(AsyncToXmlFileSwitch, IsOffAtLoadAndKeepsWhatIsSet) {
    EXPECT_FALSE(GetAsyncToXmlFile());
    AsyncToXmlFile(true);
    EXPECT_TRUE(GetAsyncToXmlFile());
    AsyncToXmlFile(false);
    EXPECT_FALSE(GetAsyncToXmlFile());
}

// --- what reaches the file, and when ---------------------------------------------------------

TEST_F(FileTextStream, ShortDocumentReachesTheFileOnlyAtEnd) {
    const std::string strPath = m_folder.Path("short.xml");
    WriteFile(strPath, std::string(10000, 'x'));  // truncated by Start
    {
        CWatchedFileStream stream(strPath, XmlEncoding_UTF8);
        CXmlTextWriter writer(&stream);
        writer.StartDocument();
        EXPECT_EQ(0, FileSize(strPath));
        writer.WriteHeader();
        writer.WriteStartElement("a", "");
        writer.WriteElementText("\xC3\xA9t\xC3\xA9", ItemType_string, false);
        writer.WriteEndElement();
        EXPECT_EQ(0, stream.m_nCalls);
        EXPECT_EQ(0, FileSize(strPath));
        writer.EndDocument();
        EXPECT_TRUE(stream.m_vecWrittenLengths.empty());
    }
    EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\xC3\xA9t\xC3\xA9</a>\n", ReadFile(strPath));
}

TEST_F(FileTextStream, FlushesOfSmallAmountsAreGatheredIntoOneWrite) {
    const std::string strPath = m_folder.Path("medium.xml");
    CWatchedFileStream stream(strPath, XmlEncoding_UTF8);
    CXmlTextWriter writer(&stream);
    WriteItems(writer, 300);  // some 27 KB: the writer flushes after every operation past 4096
    EXPECT_GT(stream.m_nCalls, 100);
    EXPECT_TRUE(stream.m_vecWrittenLengths.empty());
    EXPECT_TRUE(ReadFile(strPath) == InMemoryBytes(XmlEncoding_UTF8, 300));
}

TEST_F(FileTextStream, ManyWritesGiveTheBytesOfTheInMemoryRoute) {
    const int nItems = 12000;
    for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration}) {
        SCOPED_TRACE(static_cast<int>(eEncoding));
        const std::string strPath = m_folder.Path("many.xml");
        {
            CWatchedFileStream stream(strPath, eEncoding);
            CXmlTextWriter writer(&stream);
            WriteItems(writer, nItems);
            ASSERT_GT(stream.m_vecWrittenLengths.size(), 10u);
            // Each write waits for the one before it, so once a Flush has written, the file holds
            // at least all the text of the earlier writes, and never more than has been written.
            long long nBefore = eEncoding == XmlEncoding_UTF8 ? 0 : 2;
            long long nUpTo = nBefore;
            for (size_t i = 0; i < stream.m_vecWrittenLengths.size(); ++i) {
                nUpTo += stream.m_vecEncodedLengths[i];
                EXPECT_GE(stream.m_vecFileSizes[i], nBefore) << "write " << i;
                EXPECT_LE(stream.m_vecFileSizes[i], nUpTo) << "write " << i;
                EXPECT_GE(stream.m_vecWrittenLengths[i], 65536u);
                EXPECT_LT(stream.m_vecWrittenLengths[i], 65536u + 200u);
                nBefore = nUpTo;
            }
        }
        const std::string strFile = ReadFile(strPath);
        EXPECT_TRUE(strFile == InMemoryBytes(eEncoding, nItems)) << "the file differs from the in-memory bytes";
    }
}

TEST_F(FileTextStream, Utf16FileBeginsWithTheMarkAndHasNoOther) {
    const std::string strPath = m_folder.Path("utf16.xml");
    CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF16);
    stream.Start();
    // The mark is written at Start, ahead of any text.
    stream.WriteString("a\xC3\xA9");
    stream.Flush();
    stream.WriteString("\xF0\x9F\x98\x80");
    stream.Flush();
    stream.WriteString("z");
    stream.End();
    EXPECT_EQ(std::string("\xFF\xFE"
                          "a\0\xE9\0\x3D\xD8\x00\xDEz\0",
                          12),
              ReadFile(strPath));
}

TEST_F(FileTextStream, EmptyUtf16DocumentIsTheMarkAlone) {
    const std::string strPath = m_folder.Path("empty16.xml");
    CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF16NoDeclaration);
    stream.Start();
    stream.End();
    EXPECT_EQ("\xFF\xFE", ReadFile(strPath));

    CFileTextStream utf8(strPath.c_str(), XmlEncoding_UTF8);
    utf8.Start();
    utf8.End();
    EXPECT_EQ(0, FileSize(strPath));
}

TEST_F(FileTextStream, CharacterSplitBetweenWritesStaysWholeInUtf16) {
    const std::string strPath = m_folder.Path("split.xml");
    const std::string strRunA(70000, 'a');
    const std::string strRunD(70000, 'd');
    CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF16);
    stream.Start();
    stream.WriteString(strRunA + "b\xF0\x9F");
    stream.Flush();
    // The first half of the emoji waits for the rest.
    EXPECT_EQ(2u, stream.GetLength());
    stream.WriteString(
        "\x98\x80"
        "c" +
        strRunD + "\xC3");
    stream.Flush();
    EXPECT_EQ(1u, stream.GetLength());
    stream.WriteString("\xA9");
    stream.End();

    std::string strExpected = "\xFF\xFE";
    for (char c : strRunA) strExpected += std::string(1, c) + '\0';
    strExpected += std::string(
        "b\0\x3D\xD8\x00\xDE"
        "c\0",
        8);
    for (char c : strRunD) strExpected += std::string(1, c) + '\0';
    strExpected += std::string("\xE9\0", 2);
    EXPECT_TRUE(strExpected == ReadFile(strPath));
}

TEST_F(FileTextStream, IncompleteCharacterAtTheVeryEndIsReplacedAtEnd) {
    const std::string strPath = m_folder.Path("cut.xml");
    CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF16);
    stream.Start();
    stream.WriteString("x\xE2\x82");
    stream.End();
    EXPECT_EQ(std::string("\xFF\xFE"
                          "x\0\xFD\xFF",
                          6),
              ReadFile(strPath));
}

TEST_F(FileTextStream, CodePage1252TextIsConvertedAtEachWrite) {
    SetLocalCharEncoding(1252);
    const std::string strRun(70000, 'x');
    const std::string strPath8 = m_folder.Path("cp8.xml");
    const std::string strPath16 = m_folder.Path("cp16.xml");
    CFileTextStream utf8(strPath8.c_str(), XmlEncoding_UTF8);
    CFileTextStream utf16(strPath16.c_str(), XmlEncoding_UTF16);
    utf8.Start();
    utf16.Start();
    for (CFileTextStream* pStream : {&utf8, &utf16}) {
        pStream->WriteString("caf\xE9" + strRun);
        pStream->Flush();
        EXPECT_EQ(0u, pStream->GetLength());
        pStream->WriteString(" \x80");
        pStream->End();
    }
    EXPECT_TRUE("caf\xC3\xA9" + strRun + " \xE2\x82\xAC" == ReadFile(strPath8));
    std::string strExpected16(
        "\xFF\xFE"
        "c\0a\0f\0\xE9\0",
        10);
    for (char c : strRun) strExpected16 += std::string(1, c) + '\0';
    strExpected16 += std::string(" \0\xAC\x20", 4);
    EXPECT_TRUE(strExpected16 == ReadFile(strPath16));
}

TEST_F(FileTextStream, StartedAgainTheStreamWritesAFreshFile) {
    const std::string strPath = m_folder.Path("again.xml");
    CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF16);
    stream.Start();
    stream.WriteString("first run, longer");
    stream.End();
    stream.Start();
    stream.WriteString("2nd");
    stream.End();
    EXPECT_EQ(std::string("\xFF\xFE"
                          "2\0n\0d\0",
                          8),
              ReadFile(strPath));
}

TEST_F(FileTextStream, BufferIsReusedSoMemoryStaysFlatOver100MB) {
    const std::string strPath = m_folder.Path("big.xml");
    const std::string strPiece = "<item n=\"0123456789\">caf\xC3\xA9 and some more text to fill the line</item>\n";
    const long long nTarget = 100LL * 1024 * 1024;
    long long nWritten = 0;
    long lBaseline = -1;
    long lPeak = 0;
    int nFlushes = 0;
    {
        CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF8);
        stream.Start();
        while (nWritten < nTarget) {
            stream.WriteString(strPiece);
            nWritten += static_cast<long long>(strPiece.size());
            if (stream.GetLength() >= 4096) {
                stream.Flush();
                ASSERT_LT(stream.GetLength(), 65536u);
                if (++nFlushes % 256 == 0) {
                    const long lNow = ResidentKilobytes();
                    if (lBaseline < 0) lBaseline = lNow;
                    if (lNow > lPeak) lPeak = lNow;
                }
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

    // Spot checks of the content: the pieces lie end to end.
    const int hFile = ::open(strPath.c_str(), O_RDONLY);
    ASSERT_GE(hFile, 0);
    std::string strProbe(strPiece.size(), '\0');
    for (long long nIndex : {0LL, 1LL, 12345LL, nWritten / static_cast<long long>(strPiece.size()) - 1}) {
        const off_t nOffset = static_cast<off_t>(nIndex * static_cast<long long>(strPiece.size()));
        ASSERT_EQ(static_cast<ssize_t>(strProbe.size()), ::pread(hFile, &strProbe[0], strProbe.size(), nOffset));
        EXPECT_EQ(strPiece, strProbe) << "piece " << nIndex;
    }
    ::close(hFile);
}

// --- failures --------------------------------------------------------------------------------

TEST_F(FileTextStream, OpenFailuresTellTheFileAndTheSystemCode) {
    WriteFile(m_folder.Path("plain"), "x");
    ASSERT_EQ(0, ::mkdir(m_folder.Path("folder").c_str(), 0755));
    struct SCase {
        std::string strPath;
        const char* pszCode;
    };
    const SCase cases[] = {
        {m_folder.Path("missing/doc.xml"), "0x00000002"},  // no such folder
        {m_folder.Path("plain/doc.xml"), "0x00000014"},    // a file where a folder should be
        {m_folder.Path("folder"), "0x00000015"},           // a folder where the file should be
    };
    const int nDescriptors = OpenDescriptors();
    for (const SCase& c : cases) {
        for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16}) {
            CFileTextStream stream(c.strPath.c_str(), eEncoding);
            ExpectException([&]() { stream.Start(); },
                            "Failed to write data to the file [" + c.strPath + "] error [" + c.pszCode + "]");
            EXPECT_EQ(nDescriptors, OpenDescriptors());
        }
    }
    EXPECT_EQ(nDescriptors, OpenDescriptors());
}

TEST_F(FileTextStream, OpenFailureCodeIsPrintedInUpperCaseHex) {
    // A file that can't be created for a reason whose code holds hex letters: in sysfs that is
    // "permission denied" (0x0D), or "read-only file system" (0x1E) where it is mounted so.
    const std::string strPath = "/sys/orvex-streams-test.xml";
    const int hProbe = ::open(strPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    const int nError = errno;
    if (hProbe >= 0) {
        ::close(hProbe);
        ::unlink(strPath.c_str());
        GTEST_SKIP() << "sysfs accepts new files here";
    }
    if (nError != EACCES && nError != EROFS) GTEST_SKIP() << "sysfs refuses with errno " << nError;
    const char* pszCode = nError == EACCES ? "0x0000000D" : "0x0000001E";
    CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF8);
    ExpectException([&]() { stream.Start(); },
                    "Failed to write data to the file [" + strPath + "] error [" + pszCode + "]");
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
        ExpectException([&]() { stream.End(); }, "Failed to write data to the file. Error [0x0000001C]");
        EXPECT_EQ(nDescriptors, OpenDescriptors());

        // The descriptor number may now serve someone else: the stream must not use or close
        // it again.
        const int hOther = ::open("/dev/null", O_RDONLY);
        ASSERT_GE(hOther, 0);
        stream.WriteString("c");
        ExpectException([&]() { stream.End(); }, "Failed to write data to the file. Error [0x00000009]");
        EXPECT_NE(-1, ::fcntl(hOther, F_GETFD));
        ::close(hOther);
    }
    EXPECT_EQ(nDescriptors, OpenDescriptors());

    // The mark of a UTF-16 file fails the same way, at the first wait.
    {
        CFileTextStream stream("/dev/full", XmlEncoding_UTF16);
        stream.Start();
        stream.WriteString("a");
        ExpectException([&]() { stream.End(); }, "Failed to write data to the file. Error [0x0000001C]");
        EXPECT_EQ(nDescriptors, OpenDescriptors());
    }
    EXPECT_EQ(nDescriptors, OpenDescriptors());
}

TEST_F(FileTextStream, WritingBeforeStartFailsWithoutTouchingAnyFile) {
    const std::string strPath = m_folder.Path("never.xml");
    CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF8);
    stream.WriteString(std::string(70000, 'a'));
    ExpectException([&]() { stream.Flush(); }, "Failed to write data to the file. Error [0x00000009]");
    CFileTextStream small(strPath.c_str(), XmlEncoding_UTF8);
    small.WriteString("<a/>");
    ExpectException([&]() { small.End(); }, "Failed to write data to the file. Error [0x00000009]");
    EXPECT_EQ(-1, FileSize(strPath));
}

TEST_F(FileTextStream, StreamWithoutEncodingFailsAtTheFirstFlushAndClosesTheFile) {
    const std::string strPath = m_folder.Path("none.xml");
    const int nDescriptors = OpenDescriptors();
    {
        CFileTextStream stream(strPath.c_str(), XmlEncoding_None);
        stream.Start();
        stream.WriteString("<a/>");
        ExpectException([&]() { stream.End(); }, "Unknown Encoding, select UTF-8 (contact our support team)");
        EXPECT_EQ(nDescriptors, OpenDescriptors());
    }
    EXPECT_EQ(0, FileSize(strPath));
}

TEST_F(FileTextStream, DestroyedWithAWriteInFlightLeavesNoDescriptor) {
    const std::string strPath = m_folder.Path("abandoned.xml");
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
    const long long nSize = FileSize(strPath);
    EXPECT_LE(nSize, 2 + 400000);
}

TEST_F(FileTextStream, WriterFailureLeavesWhatWasFlushedAndNoDescriptor) {
    const std::string strPath = m_folder.Path("partial.xml");
    const int nDescriptors = OpenDescriptors();
    {
        CFileTextStream stream(strPath.c_str(), XmlEncoding_UTF8);
        CXmlTextWriter writer(&stream);
        writer.StartDocument();
        writer.WriteStartElement("list", "");
        for (int i = 0; i < 1000; ++i) {
            writer.WriteStartElement("i", "");
            writer.WriteElementText("0123456789", ItemType_string, false);
            writer.WriteEndElement();
        }
        try {
            writer.EndDocument();  // the list is still open
            ADD_FAILURE() << "no exception";
        } catch (const COxException& e) {
            EXPECT_EQ("An Element has not been closed.", e.GetMessage());
        }
    }
    EXPECT_EQ(nDescriptors, OpenDescriptors());
    // The writer ended the stream before it found the open element.
    std::string strExpected = "<list>\n";
    for (int i = 0; i < 1000; ++i) strExpected += "\t<i>0123456789</i>\n";
    EXPECT_EQ(strExpected, ReadFile(strPath));
}

}  // namespace
