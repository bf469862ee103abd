// Clearing a typed collection that has a listener, over a range of sizes, next to two
// baselines of the same run on the same listened collection: appending the items, and
// removing them one by one from the back; each fires the same three events per item at the
// end of the vector. Clear with a listener should grow like those do: linearly.
#include <benchmark/benchmark.h>
#include <orvexxml/orvexxml.h>

using namespace OrvexXml;

namespace {

const bool g_bRegistered = (Register(ORVEXXML_VERSION_MAJOR, ORVEXXML_VERSION_MINOR), true);

// Counts what it hears, so that the events can't be optimised away.
class CCountingListener : public IEventSink {
public:
    void OnEvent(CXmlObjectBase*, MsgType, void*) override { ++m_nEvents; }
    long long m_nEvents = 0;
};

CSmartPtr<Ci4Col> MakeCol() {
    return new Ci4Col("v", "", 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                      CWhitespaceUtils::WhitespaceRule_collapse, nullptr);
}

void Fill(Ci4Col& col, int nItems) {
    for (int i = 0; i < nItems; ++i) col.Add(i);
}

void BM_ClearListened(benchmark::State& state) {
    const int nItems = static_cast<int>(state.range(0));
    CCountingListener listener;
    CSmartPtr<Ci4Col> col = MakeCol();
    col->AddEventListener(&listener);
    for (auto _ : state) {
        state.PauseTiming();
        Fill(*col, nItems);
        state.ResumeTiming();
        col->Clear();
    }
    benchmark::DoNotOptimize(listener.m_nEvents);
    state.SetComplexityN(nItems);
    state.SetItemsProcessed(state.iterations() * nItems);
}

void BM_AppendListened(benchmark::State& state) {
    const int nItems = static_cast<int>(state.range(0));
    CCountingListener listener;
    CSmartPtr<Ci4Col> col = MakeCol();
    col->AddEventListener(&listener);
    for (auto _ : state) {
        Fill(*col, nItems);
        state.PauseTiming();
        col->RemoveEventListener(&listener);
        col->Clear();
        col->AddEventListener(&listener);
        state.ResumeTiming();
    }
    benchmark::DoNotOptimize(listener.m_nEvents);
    state.SetComplexityN(nItems);
    state.SetItemsProcessed(state.iterations() * nItems);
}

void BM_RemoveFromBackListened(benchmark::State& state) {
    const int nItems = static_cast<int>(state.range(0));
    CCountingListener listener;
    CSmartPtr<Ci4Col> col = MakeCol();
    col->AddEventListener(&listener);
    for (auto _ : state) {
        state.PauseTiming();
        Fill(*col, nItems);
        state.ResumeTiming();
        for (int i = nItems - 1; i >= 0; --i) col->Remove(i);
    }
    benchmark::DoNotOptimize(listener.m_nEvents);
    state.SetComplexityN(nItems);
    state.SetItemsProcessed(state.iterations() * nItems);
}

}  // namespace

BENCHMARK(BM_AppendListened)->RangeMultiplier(2)->Range(12500, 200000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_ClearListened)->RangeMultiplier(2)->Range(12500, 200000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_RemoveFromBackListened)
    ->RangeMultiplier(2)
    ->Range(12500, 200000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

BENCHMARK_MAIN();
