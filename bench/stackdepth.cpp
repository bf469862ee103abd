// Stack used per level by the object walks: writes and reads a chain of objects, each holding
// one of its own kind, at two depths, and prints the growth of the deepest stack address per
// level. The baseline is the same chain at a shallow depth, so that the frames of the entry
// points and of expat drop out. The figure sets the default nesting limit of the context.
#include <cstdint>
#include <cstdio>
#include <string>

#include "support/testclasses.h"

using namespace OrvexXml;
using namespace OrvexTest;

namespace {

uintptr_t g_nLowest;

// Called at every level of both walks through the class's getter and its reset.
class CProbedNest : public CTestNest {
public:
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        Probe();
        CTestNest::ExchangeProperty(nIndex, bRead, value);
    }
    void ResetToDefaults() override {
        Probe();
        CTestNest::ResetToDefaults();
    }
    CTestNest* CreateChild() const override { return new CProbedNest(); }

private:
    __attribute__((noinline)) static void Probe() {
        volatile char c = 0;
        uintptr_t n = reinterpret_cast<uintptr_t>(&c);
        if (n < g_nLowest) g_nLowest = n;
    }
};

CSmartPtr<CTestNest> ProbedChain(int32_t nLevels) {
    CSmartPtr<CTestNest> root = new CProbedNest();
    CTestNest* p = root;
    for (int32_t i = 1; i < nLevels; ++i) {
        p->m_child = new CProbedNest();
        p = static_cast<CTestNest*>(static_cast<CXmlObjectBase*>(p->m_child));
    }
    return root;
}

struct CDepthUse {
    uintptr_t nWrite;
    uintptr_t nRead;
};

__attribute__((noinline)) CDepthUse Measure(int32_t nLevels, const CSerializationContext& ctx) {
    volatile char base = 0;
    const uintptr_t nBase = reinterpret_cast<uintptr_t>(&base);
    CSmartPtr<CTestNest> chain = ProbedChain(nLevels);
    g_nLowest = nBase;
    std::string strXml = chain->ToXml(false, false, EOLType_LF, ctx);
    CDepthUse use;
    use.nWrite = nBase - g_nLowest;
    CSmartPtr<CTestNest> read = new CProbedNest();
    g_nLowest = nBase;
    read->FromXml(strXml.c_str(), ctx);
    use.nRead = nBase - g_nLowest;
    return use;
}

}  // namespace

int main() {
    Register(16, 1);
    CSerializationContext ctx;
    ctx.SetMaxDepth(100000);
    const int32_t nLow = 100, nHigh = 1100;
    CDepthUse low = Measure(nLow, ctx), high = Measure(nHigh, ctx);
    const double dWrite = static_cast<double>(high.nWrite - low.nWrite) / (nHigh - nLow);
    const double dRead = static_cast<double>(high.nRead - low.nRead) / (nHigh - nLow);
    const int32_t nDefault = CSerializationContext::DefaultMaxDepth;
    std::printf("stack per level: write %.0f bytes, read %.0f bytes\n", dWrite, dRead);
    std::printf("default limit %d levels: write %.0f KiB, read %.0f KiB of a 1024 KiB thread stack\n", nDefault,
                dWrite * nDefault / 1024, dRead * nDefault / 1024);
    return 0;
}
