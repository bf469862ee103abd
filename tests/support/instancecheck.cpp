// Linked into every test program: after each test, no instance of a monitored class may be
// left alive that wasn't alive before it. A leak aborts the program with the test's name, so
// the test fails under CTest whatever the test itself asserted.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <sstream>
#include <string>

#include "orvexxml/infrastructure/instancemonitor.h"

namespace {

// Living instances per class name, read from the monitor's table.
std::map<std::string, int> LivingInstances() {
    std::map<std::string, int> mapLiving;
    std::istringstream in(OrvexXml::CInstanceMonitor::DumpState());
    std::string strLine;
    std::getline(in, strLine);  // the header
    while (std::getline(in, strLine)) {
        size_t nEquals = strLine.rfind(" = ");
        size_t nSlash = strLine.rfind('/');
        if (strLine.size() < 4 || nEquals == std::string::npos || nSlash == std::string::npos) continue;
        mapLiving[strLine.substr(4, nEquals - 4)] =
            std::atoi(strLine.substr(nEquals + 3, nSlash - nEquals - 3).c_str());
    }
    return mapLiving;
}

class CInstanceLeakCheck : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override { m_mapBefore = LivingInstances(); }
    void OnTestEnd(const ::testing::TestInfo& info) override {
        for (const auto& entry : LivingInstances()) {
            auto it = m_mapBefore.find(entry.first);
            int nBefore = it == m_mapBefore.end() ? 0 : it->second;
            if (entry.second > nBefore) {
                std::fprintf(stderr, "%s.%s left %d instance(s) of %s alive\n%s\n", info.test_suite_name(), info.name(),
                             entry.second - nBefore, entry.first.c_str(),
                             OrvexXml::CInstanceMonitor::DumpState().c_str());
                std::abort();
            }
        }
    }
    std::map<std::string, int> m_mapBefore;
};

struct CRegisterLeakCheck {
    CRegisterLeakCheck() { ::testing::UnitTest::GetInstance()->listeners().Append(new CInstanceLeakCheck); }
} g_registerLeakCheck;

}  // namespace
