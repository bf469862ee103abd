// orvex: converts, pretty-prints and describes XML documents of any vocabulary with the
// library's open-content classes. See CCommandLine::GetHelpText for the interface.
#include <orvexxml/orvexxml.h>
#include <zlib.h>

#include <cstdio>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "commandline.h"
#include "documentroot.h"
#include "inputdocument.h"
#include "outputfile.h"
#include "progress.h"
#include "toolerror.h"

using namespace OrvexXml;
using namespace OrvexTool;

namespace {

const char* FormName(InputForm eForm) {
    switch (eForm) {
        case InputForm_Json:
            return "json";
        case InputForm_FastInfoset:
            return "fi";
        default:
            return "xml";
    }
}

const char* CompressionName(CompressionType eType) {
    switch (eType) {
        case CompressionType_GZip:
            return "gzip";
        case CompressionType_ZLib:
            return "zlib";
        default:
            return "none";
    }
}

// Compresses a finished output at the library's level. zlib is used directly rather than
// COxZip, which refuses data that don't shrink: a tool must compress a small document too.
std::vector<unsigned char> Compress(const unsigned char* pData, size_t nLength, CompressionType eType) {
    z_stream stream;
    std::memset(&stream, 0, sizeof(stream));
    if (deflateInit2(&stream, 1, Z_DEFLATED, eType == CompressionType_GZip ? 31 : 15, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        throw CToolError(ExitStatus_BadDocument, "compression failed to start");
    std::vector<unsigned char> vecOut(deflateBound(&stream, nLength));
    stream.next_in = const_cast<unsigned char*>(pData);
    stream.avail_in = static_cast<uInt>(nLength);
    stream.next_out = vecOut.data();
    stream.avail_out = static_cast<uInt>(vecOut.size());
    const int nCode = deflate(&stream, Z_FINISH);
    vecOut.resize(stream.total_out);
    deflateEnd(&stream);
    if (nCode != Z_STREAM_END) throw CToolError(ExitStatus_BadDocument, "compression failed");
    return vecOut;
}

struct WriteSettings {
    OutputForm eForm = OutputForm_Xml;
    JsonRoundTrip eJsonMode = JsonRoundTrip_Full;
    CompressionType eCompression = CompressionType_None;
    bool bFormatted = true;
    XmlEncoding eEncoding = XmlEncoding_UTF8;
    bool bAllowMixed = false;
};

// Reads the input as a tree, writes it as the settings say, and puts it in place.
void Convert(const std::string& strIn, const std::string& strOut, const WriteSettings& settings, bool bKeepInputForm) {
    COutputFile output(strOut);
    CProgress progress;
    CInputDocument input(strIn);
    input.Read(progress);
    WriteSettings actual = settings;
    if (bKeepInputForm) {
        actual.eForm = input.GetForm() == InputForm_Json          ? OutputForm_Json
                       : input.GetForm() == InputForm_FastInfoset ? OutputForm_FastInfoset
                                                                  : OutputForm_Xml;
        actual.eCompression = input.GetCompression();
        actual.eEncoding = input.IsUtf16() ? XmlEncoding_UTF16 : XmlEncoding_UTF8;
    }
    if (actual.eCompression != CompressionType_None && output.IsTerminal())
        throw CToolError(ExitStatus_BadUsage, "compressed data not written to a terminal; use -o or a redirection");
    if (actual.eForm == OutputForm_FastInfoset && output.IsTerminal())
        throw CToolError(ExitStatus_BadUsage, "Fast Infoset not written to a terminal; use -o or a redirection");

    progress.Step("parsing");
    CSerializationContext ctx;
    ctx.SetMaxDepth(INT32_MAX);  // the tree is built without recursion, the walks need the stack
    input.Parse(ctx);
    if (!actual.bAllowMixed) {
        const std::string strPath = input.FindMixedContent();
        if (!strPath.empty())
            throw CToolError(ExitStatus_BadDocument,
                             input.GetDisplayName() + ": mixed content at " + strPath +
                                 " would be reordered (text after child elements); --allow-mixed accepts that");
    }
    std::vector<std::pair<std::string, std::string>> vecPrefixes;
    std::string strDefault;
    input.GetNamespaces(vecPrefixes, strDefault);

    progress.Step("writing");
    CBinaryData data;
    try {
        CSmartPtr<CElement> pElement = new CElement("");
        pElement->FromXmlElement(input.GetDocument().GetDocumentElement(), ctx);
        input.ReleaseTree();  // the elements hold copies of everything; the peak drops by the tree
        CSmartPtr<CDocumentRoot> pRoot = new CDocumentRoot(pElement, vecPrefixes, strDefault);
        if (actual.eForm == OutputForm_Json) {
            ctx.GetJsonContext().SetSupportRoundtrip(actual.eJsonMode);
            data = pRoot->ToJsonStream(actual.bFormatted, actual.eEncoding, EOLType_LF, ctx, CompressionType_None);
        } else if (actual.eForm == OutputForm_FastInfoset) {
            // Without an XML declaration in front: the identification octets say what it is.
            // Every namespace is declared on the root with the document's prefixes, so that
            // no name carries a prefix of the writer's that no namespace attribute declares.
            data = pRoot->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None);
        } else {
            data = pRoot->ToXmlStream(true, actual.bFormatted, actual.eEncoding, EOLType_LF, ctx, CompressionType_None);
        }
    } catch (const COxException& e) {
        std::string strMessage = e.GetFullMessage();
        for (size_t n = 0; (n = strMessage.find('\n', n)) != std::string::npos;) strMessage.replace(n, 1, "; ");
        throw CToolError(ExitStatus_BadDocument, input.GetDisplayName() + ": " + strMessage);
    }
    // A UTF-16 XML file begins with its byte order mark, as the library's files do.
    std::vector<unsigned char> vecOut;
    if (actual.eForm == OutputForm_Xml && actual.eEncoding == XmlEncoding_UTF16) {
        vecOut.push_back(0xFF);
        vecOut.push_back(0xFE);
    }
    vecOut.insert(vecOut.end(), data.GetData(), data.GetData() + data.GetLength());
    data.Clear();
    // A JSON text ends with a line end, as the XML writer's formatted text does.
    if (actual.eForm == OutputForm_Json) {
        vecOut.push_back('\n');
        if (actual.eEncoding == XmlEncoding_UTF16) vecOut.push_back(0);
    }
    if (actual.eCompression != CompressionType_None)
        vecOut = Compress(vecOut.data(), vecOut.size(), actual.eCompression);
    progress.Done();
    output.WriteAndCommit(vecOut.data(), vecOut.size());
}

void Info(const std::string& strIn) {
    CProgress progress;
    CInputDocument input(strIn);
    input.Read(progress);
    std::string strText = std::string("form: ") + FormName(input.GetForm()) + "\n";
    strText += std::string("compression: ") + CompressionName(input.GetCompression()) + "\n";
    strText += "size: " + std::to_string(input.GetInputSize()) + "\n";
    strText += "uncompressed size: " + std::to_string(input.GetContentSize()) + "\n";
    progress.Step("parsing");
    CSerializationContext ctx;
    ctx.SetMaxDepth(INT32_MAX);
    try {
        input.Parse(ctx);
    } catch (const CToolError&) {
        // What the bytes are is known without the tree: it is printed before the error.
        progress.Done();
        COutputFile("-").WriteAndCommit(reinterpret_cast<const unsigned char*>(strText.data()), strText.size());
        throw;
    }
    const CInputDocument::Counts counts = input.Count();
    strText += "elements: " + std::to_string(counts.nElements) + "\n";
    strText += "attributes: " + std::to_string(counts.nAttributes) + "\n";
    strText += "depth: " + std::to_string(counts.nDepth) + "\n";
    progress.Done();
    COutputFile("-").WriteAndCommit(reinterpret_cast<const unsigned char*>(strText.data()), strText.size());
}

int Run(const std::vector<std::string>& vecArgs) {
    CCommandLine commandLine;
    commandLine.Parse(vecArgs);
    switch (commandLine.GetCommand()) {
        case Command_Help:
            std::fputs(CCommandLine::GetHelpText(), stdout);
            return ExitStatus_Success;
        case Command_Version:
            std::printf("orvex %d.%d (liborvexxml %d.%d, zlib %s)\n", ORVEXXML_VERSION_MAJOR, ORVEXXML_VERSION_MINOR,
                        ORVEXXML_VERSION_MAJOR, ORVEXXML_VERSION_MINOR, zlibVersion());
            return ExitStatus_Success;
        case Command_Info:
            Info(commandLine.GetInput());
            return ExitStatus_Success;
        case Command_Format: {
            WriteSettings settings;
            settings.bAllowMixed = commandLine.GetAllowMixed();
            Convert(commandLine.GetInput(), commandLine.GetOutput(), settings, true);
            return ExitStatus_Success;
        }
        case Command_Convert: {
            WriteSettings settings;
            settings.eForm = commandLine.GetOutputForm();
            settings.eJsonMode = commandLine.GetJsonMode();
            settings.eCompression = commandLine.GetCompression();
            settings.bFormatted = commandLine.GetFormatted();
            settings.eEncoding = commandLine.GetEncoding();
            settings.bAllowMixed = commandLine.GetAllowMixed();
            Convert(commandLine.GetInput(), commandLine.GetOutput(), settings, false);
            return ExitStatus_Success;
        }
    }
    return ExitStatus_Success;
}

}  // namespace

int main(int argc, char** argv) {
    Register(ORVEXXML_VERSION_MAJOR, ORVEXXML_VERSION_MINOR);
    try {
        return Run(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const CToolError& e) {
        std::fflush(stdout);
        std::fprintf(stderr, "orvex: %s\n", e.GetMessage().c_str());
        return e.GetStatus();
    } catch (const COxException& e) {
        std::fprintf(stderr, "orvex: %s\n", e.GetMessage().c_str());
        return ExitStatus_BadDocument;
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "orvex: out of memory\n");
        return ExitStatus_BadDocument;
    }
}
