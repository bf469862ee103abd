#pragma once

#include <orvexxml/orvexxml.h>

#include <string>
#include <vector>

namespace OrvexTool {

enum Command { Command_Help, Command_Version, Command_Convert, Command_Format, Command_Info };

// The forms a document can be written in.
enum OutputForm { OutputForm_Xml, OutputForm_Json, OutputForm_FastInfoset };

// The arguments of one run. Parse throws CToolError with ExitStatus_BadUsage for anything it
// can't take: an unknown command or option, a missing or superfluous value, an option that
// the command doesn't have.
class CCommandLine {
public:
    CCommandLine();
    void Parse(const std::vector<std::string>& vecArgs);

    Command GetCommand() const { return m_eCommand; }
    // The input, "-" for standard input.
    const std::string& GetInput() const { return m_strInput; }
    // The output, "-" for standard output.
    const std::string& GetOutput() const { return m_strOutput; }
    OutputForm GetOutputForm() const { return m_eOutputForm; }
    OrvexXml::JsonRoundTrip GetJsonMode() const { return m_eJsonMode; }
    OrvexXml::CompressionType GetCompression() const { return m_eCompression; }
    bool GetFormatted() const { return m_bFormatted; }
    OrvexXml::XmlEncoding GetEncoding() const { return m_eEncoding; }
    bool GetAllowMixed() const { return m_bAllowMixed; }

    // The help text of --help.
    static const char* GetHelpText();

private:
    // The value of an option: the part after "=" or the next argument.
    std::string TakeValue(const std::string& strOption, const std::string* pInline,
                          const std::vector<std::string>& vecArgs, size_t& nIndex);
    // Refuses an option that the command doesn't take.
    void Allow(const std::string& strOption, bool bAllowed) const;

    Command m_eCommand;
    std::string m_strCommandName;
    std::string m_strInput;
    std::string m_strOutput;
    bool m_bHasTo;
    OutputForm m_eOutputForm;
    OrvexXml::JsonRoundTrip m_eJsonMode;
    OrvexXml::CompressionType m_eCompression;
    bool m_bFormatted;
    OrvexXml::XmlEncoding m_eEncoding;
    bool m_bAllowMixed;
};

}  // namespace OrvexTool
