// Internal: the depth guard of the recursive object walks. Not part of the installed interface.
#pragma once

#include <cstdint>

#include "orvexxml/binding/serializationcontext.h"

namespace OrvexXml {

// One level of a walk that recurses once per object, counted in a per-thread counter for as
// long as the level lives. The counter is per thread because the stack it protects is; each
// kind of walk keeps its own.
class CWalkLevel {
public:
    explicit CWalkLevel(int32_t& nDepth) : m_nDepth(nDepth) { ++m_nDepth; }
    ~CWalkLevel() { --m_nDepth; }
    CWalkLevel(const CWalkLevel&) = delete;
    CWalkLevel& operator=(const CWalkLevel&) = delete;
    bool IsTooDeep(const CSerializationContext& ctx) const { return m_nDepth > ctx.GetMaxDepth(); }

private:
    int32_t& m_nDepth;
};

}  // namespace OrvexXml
