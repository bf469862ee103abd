#pragma once

#include <cstdint>
#include <string>

namespace OrvexTool {

// A progress line on standard error, for large inputs on a terminal only: the bytes read, then
// the step under way. Silent when standard error is not a terminal or the input is small.
class CProgress {
public:
    // Inputs from this size up show progress.
    static constexpr uint64_t MIN_SIZE = 50ull * 1000 * 1000;

    CProgress();
    ~CProgress();
    CProgress(const CProgress&) = delete;
    CProgress& operator=(const CProgress&) = delete;

    // nRead bytes of nTotal (0 when unknown, as on a pipe) have been read.
    void Reading(const std::string& strName, uint64_t nRead, uint64_t nTotal);
    // A step after reading ("parsing", "writing"), shown once progress has begun.
    void Step(const char* pszStep);
    // Clears the line.
    void Done();

private:
    void Show(const std::string& strLine);

    bool m_bTerminal;
    bool m_bShown;
    uint64_t m_nLastShown;
};

}  // namespace OrvexTool
