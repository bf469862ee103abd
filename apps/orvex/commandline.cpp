#include "commandline.h"

#include "toolerror.h"

namespace OrvexTool {

using namespace OrvexXml;

namespace {

[[noreturn]] void Usage(const std::string& strMessage) {
    throw CToolError(ExitStatus_BadUsage, strMessage + " (see orvex --help)");
}

}  // namespace

CCommandLine::CCommandLine()
    : m_eCommand(Command_Help),
      m_strOutput("-"),
      m_bHasTo(false),
      m_eOutputForm(OutputForm_Xml),
      m_eJsonMode(JsonRoundTrip_Full),
      m_eCompression(CompressionType_None),
      m_bFormatted(true),
      m_eEncoding(XmlEncoding_UTF8),
      m_bAllowMixed(false) {}

const char* CCommandLine::GetHelpText() {
    return "Usage: orvex convert IN [-o OUT] --to xml|json|fi [options]\n"
           "       orvex format IN [-o OUT] [--allow-mixed]\n"
           "       orvex info IN\n"
           "       orvex --help | --version\n"
           "\n"
           "Converts, pretty-prints and describes XML documents of any vocabulary, without\n"
           "generated classes. IN and OUT may be \"-\" for standard input and output (the\n"
           "default output). Compressed input (gzip or zlib) and its form (XML, JSON or Fast\n"
           "Infoset) are recognised by content, not by name. JSON is read as full JSON\n"
           "describes XML (\"@\" attributes, \"#text\", \"@xmlns\" declarations).\n"
           "\n"
           "Commands:\n"
           "  convert          write IN in the form --to names\n"
           "  format           write IN indented, in its own form, encoding and compression\n"
           "  info             print form, compression, sizes, counts of elements and\n"
           "                   attributes, and the depth of IN\n"
           "\n"
           "Options of convert:\n"
           "  --to FORM        xml, json or fi (Fast Infoset)\n"
           "  -o, --output OUT where to write, \"-\" by default\n"
           "  --json-mode MODE none, simple or full (default): how much of the XML shape\n"
           "                   JSON keeps (full: \"@\" attributes, \"#text\", namespaces)\n"
           "  --gzip, --zlib   compress the output (compressed data never go to a terminal)\n"
           "  --indent         indent the output (default); --compact: no whitespace added\n"
           "  --encoding ENC   utf-8 (default) or utf-16; Fast Infoset is always UTF-8 and\n"
           "                   never indented\n"
           "  --allow-mixed    accept mixed content (see below)\n"
           "\n"
           "What is kept: elements, attributes, namespaces with the document's prefixes and\n"
           "default namespace (in full JSON: \"@xmlns\" and \"@xmlns:p\" on the root object,\n"
           "names in the default namespace without a prefix; the other JSON modes drop\n"
           "namespaces) and text. A namespace that can't keep its prefix (a prefix declared\n"
           "again for another namespace) or stay the default (an element in no namespace\n"
           "below it) is written with the prefix ns1, ns2, ... Whitespace-only text between\n"
           "child elements is taken for indentation and dropped. Comments, processing\n"
           "instructions, the document type declaration and CDATA markers are not kept.\n"
           "Mixed content (an element with both text and child elements) can't keep its\n"
           "order: the element's text is written after its children, so it is refused\n"
           "unless --allow-mixed is given.\n"
           "\n"
           "Exit status: 0 success, 1 a bad document (not well-formed, mixed content, a\n"
           "decompression bomb), 2 bad usage or a file that can't be read or written.\n"
           "Errors go to standard error, one line, with the document's line where known.\n"
           "Output is written to a temporary file beside OUT and renamed at the end, so OUT\n"
           "is never left half-written. Compressed data and Fast Infoset are not written to a\n"
           "terminal. On a terminal, inputs over 50 MB show progress.\n";
}

void CCommandLine::Allow(const std::string& strOption, bool bAllowed) const {
    if (!bAllowed) Usage("option '" + strOption + "' is not one of the command " + m_strCommandName);
}

std::string CCommandLine::TakeValue(const std::string& strOption, const std::string* pInline,
                                    const std::vector<std::string>& vecArgs, size_t& nIndex) {
    if (pInline) return *pInline;
    if (nIndex + 1 >= vecArgs.size()) Usage("option '" + strOption + "' needs a value");
    return vecArgs[++nIndex];
}

void CCommandLine::Parse(const std::vector<std::string>& vecArgs) {
    if (vecArgs.empty()) Usage("no command given");
    const std::string& strFirst = vecArgs[0];
    if (strFirst == "--help" || strFirst == "-h") {
        m_eCommand = Command_Help;
        return;
    }
    if (strFirst == "--version") {
        m_eCommand = Command_Version;
        return;
    }
    m_strCommandName = strFirst;
    if (strFirst == "convert")
        m_eCommand = Command_Convert;
    else if (strFirst == "format")
        m_eCommand = Command_Format;
    else if (strFirst == "info")
        m_eCommand = Command_Info;
    else if (!strFirst.empty() && strFirst[0] == '-')
        Usage("unknown option '" + strFirst + "'");
    else
        Usage("unknown command '" + strFirst + "'");

    const bool bConvert = m_eCommand == Command_Convert;
    const bool bWrites = m_eCommand != Command_Info;
    bool bOptionsEnded = false;
    bool bHasInput = false;
    for (size_t i = 1; i < vecArgs.size(); ++i) {
        const std::string& strArg = vecArgs[i];
        if (bOptionsEnded || strArg == "-" || strArg.empty() || strArg[0] != '-') {
            if (bHasInput) Usage("more than one input: '" + m_strInput + "' and '" + strArg + "'");
            m_strInput = strArg;
            bHasInput = true;
            continue;
        }
        if (strArg == "--") {
            bOptionsEnded = true;
            continue;
        }
        if (strArg == "--help" || strArg == "-h") {
            m_eCommand = Command_Help;
            return;
        }
        // --name=value or --name value
        std::string strName = strArg;
        std::string strInline;
        const std::string* pInline = nullptr;
        const size_t nEquals = strArg.find('=');
        if (strArg.compare(0, 2, "--") == 0 && nEquals != std::string::npos) {
            strName = strArg.substr(0, nEquals);
            strInline = strArg.substr(nEquals + 1);
            pInline = &strInline;
        }
        if (strName == "-o" || strName == "--output") {
            Allow(strName, bWrites);
            m_strOutput = TakeValue(strName, pInline, vecArgs, i);
            if (m_strOutput.empty()) Usage("option '" + strName + "' needs a value");
        } else if (strName == "--to") {
            Allow(strName, bConvert);
            const std::string strValue = TakeValue(strName, pInline, vecArgs, i);
            if (strValue == "xml")
                m_eOutputForm = OutputForm_Xml;
            else if (strValue == "json")
                m_eOutputForm = OutputForm_Json;
            else if (strValue == "fi")
                m_eOutputForm = OutputForm_FastInfoset;
            else
                Usage("unknown form '" + strValue + "' for --to: xml, json or fi");
            m_bHasTo = true;
        } else if (strName == "--json-mode") {
            Allow(strName, bConvert);
            const std::string strValue = TakeValue(strName, pInline, vecArgs, i);
            if (strValue == "none")
                m_eJsonMode = JsonRoundTrip_None;
            else if (strValue == "simple")
                m_eJsonMode = JsonRoundTrip_Simple;
            else if (strValue == "full")
                m_eJsonMode = JsonRoundTrip_Full;
            else
                Usage("unknown mode '" + strValue + "' for --json-mode: none, simple or full");
        } else if (strName == "--encoding") {
            Allow(strName, bConvert);
            const std::string strValue = TakeValue(strName, pInline, vecArgs, i);
            if (strValue == "utf-8" || strValue == "UTF-8")
                m_eEncoding = XmlEncoding_UTF8;
            else if (strValue == "utf-16" || strValue == "UTF-16")
                m_eEncoding = XmlEncoding_UTF16;
            else
                Usage("unknown encoding '" + strValue + "': utf-8 or utf-16");
        } else if (pInline) {
            Usage("option '" + strName + "' takes no value");
        } else if (strName == "--gzip" || strName == "--zlib") {
            Allow(strName, bConvert);
            const CompressionType eType = strName == "--gzip" ? CompressionType_GZip : CompressionType_ZLib;
            if (m_eCompression != CompressionType_None && m_eCompression != eType)
                Usage("--gzip and --zlib exclude each other");
            m_eCompression = eType;
        } else if (strName == "--indent" || strName == "--compact") {
            Allow(strName, bConvert);
            m_bFormatted = strName == "--indent";
        } else if (strName == "--allow-mixed") {
            Allow(strName, bWrites);
            m_bAllowMixed = true;
        } else {
            Usage("unknown option '" + strName + "'");
        }
    }
    if (!bHasInput) Usage("no input given for " + m_strCommandName);
    if (bConvert && !m_bHasTo) Usage("convert needs --to xml, json or fi");
    if (m_eOutputForm == OutputForm_FastInfoset && m_eEncoding == XmlEncoding_UTF16)
        Usage("--to fi writes its text in UTF-8; --encoding utf-16 is for xml and json");
}

}  // namespace OrvexTool
