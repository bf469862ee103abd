#include "progress.h"

#include <unistd.h>

#include <cstdio>

namespace OrvexTool {

namespace {
// Bytes between two updates of the line.
const uint64_t kUpdateStep = 16ull * 1000 * 1000;
}  // namespace

CProgress::CProgress() : m_bTerminal(::isatty(STDERR_FILENO) == 1), m_bShown(false), m_nLastShown(0) {}

CProgress::~CProgress() { Done(); }

void CProgress::Reading(const std::string& strName, uint64_t nRead, uint64_t nTotal) {
    if (!m_bTerminal) return;
    // A file of known size shows progress from the start if it is large; a pipe once it is.
    if (nTotal != 0 ? nTotal < MIN_SIZE : nRead < MIN_SIZE) return;
    if (m_bShown && nRead - m_nLastShown < kUpdateStep && nRead != nTotal) return;
    m_nLastShown = nRead;
    char szLine[256];
    if (nTotal != 0)
        std::snprintf(szLine, sizeof(szLine), "orvex: reading %s: %llu of %llu MB (%d%%)", strName.c_str(),
                      static_cast<unsigned long long>(nRead / 1000000),
                      static_cast<unsigned long long>(nTotal / 1000000), static_cast<int>(nRead * 100 / nTotal));
    else
        std::snprintf(szLine, sizeof(szLine), "orvex: reading %s: %llu MB", strName.c_str(),
                      static_cast<unsigned long long>(nRead / 1000000));
    Show(szLine);
}

void CProgress::Step(const char* pszStep) {
    if (m_bShown) Show(std::string("orvex: ") + pszStep + "...");
}

void CProgress::Done() {
    if (!m_bShown) return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    m_bShown = false;
}

void CProgress::Show(const std::string& strLine) {
    std::fprintf(stderr, "\r\033[K%s", strLine.c_str());
    std::fflush(stderr);
    m_bShown = true;
}

}  // namespace OrvexTool
