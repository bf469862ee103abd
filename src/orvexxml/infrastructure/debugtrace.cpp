#include "orvexxml/infrastructure/debugtrace.h"

#include <atomic>
#include <cassert>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <mutex>

namespace OrvexXml {

namespace {
std::mutex& SinkMutex() {
    static std::mutex mutex;
    return mutex;
}
DebugOutputSink g_pfnSink = nullptr;
void* g_pSinkUser = nullptr;
// Whether a sink is installed, readable without the lock: readers trace every event they
// see, and with nobody listening that must cost no more than this load.
std::atomic<bool> g_bSinkInstalled(false);
}  // namespace

void SetDebugOutputSink(DebugOutputSink pfnSink, void* pUser) {
    std::lock_guard<std::mutex> lock(SinkMutex());
    g_pfnSink = pfnSink;
    g_pSinkUser = pUser;
    g_bSinkInstalled.store(pfnSink != nullptr, std::memory_order_relaxed);
}

void OutputDebugText(const char* pszText) {
    std::lock_guard<std::mutex> lock(SinkMutex());
    if (g_pfnSink && pszText) g_pfnSink(pszText, g_pSinkUser);
}

void DebugTrace(const char* pszFormat, ...) {
    if (!g_bSinkInstalled.load(std::memory_order_relaxed)) return;
    {
        std::lock_guard<std::mutex> lock(SinkMutex());
        if (!g_pfnSink) return;  // nobody listens: skip the formatting too
    }
    const size_t kBufferSize = 1024 * 32;
    static thread_local char buffer[kBufferSize];
    va_list args;
    va_start(args, pszFormat);
    int nBuf = std::vsnprintf(buffer, kBufferSize, pszFormat, args);
    va_end(args);
    assert(nBuf < 1024 * 32);
    if (nBuf < 0) return;
    size_t nLen = std::strlen(buffer);
    char piece[129];
    for (size_t nPos = 0; nPos < nLen; nPos += 128) {
        size_t nChunk = nLen - nPos < 128 ? nLen - nPos : 128;
        std::memcpy(piece, buffer + nPos, nChunk);
        piece[nChunk] = '\0';
        OutputDebugText(piece);
    }
}

}  // namespace OrvexXml
