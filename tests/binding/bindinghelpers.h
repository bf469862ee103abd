// Shared pieces of the binding tests: the default context, contexts with tolerance settings,
// and the exception a call raises.
#pragma once

#include <gtest/gtest.h>
#include <orvexxml/orvexxml.h>
#include <pthread.h>

#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

namespace OrvexBindTest {

using namespace OrvexXml;

inline const CSerializationContext& DefaultCtx() { return CSerializationContext::GetDefaultContext(); }

// The text of an object without header, formatting or line ends.
inline std::string Flat(const CXmlObjectBase* pObject, const CSerializationContext& ctx = DefaultCtx()) {
    return pObject->ToXml(false, false, EOLType_LF, ctx);
}

enum { kUnknown = 1, kMissing = 2, kChoice = 4, kCounts = 8, kAttributes = 16 };

// A fresh context ignoring what the flags name.
inline CSerializationContext Ignoring(int nFlags) {
    CSerializationContext ctx;
    ctx.SetIgnoreUnknownElements(nFlags & kUnknown);
    ctx.SetIgnoreMissingMandatoryElements(nFlags & kMissing);
    ctx.SetIgnoreMissingChoice(nFlags & kChoice);
    ctx.SetIgnoreInvalidCollectionCounts(nFlags & kCounts);
    ctx.SetIgnoreUnknownAttributes(nFlags & kAttributes);
    return ctx;
}

// The exception a call raised: its full message, its path, and whether it is exactly COxException.
struct Raised {
    bool bPlainBase = false;
    std::string strMessage = "(no exception)";
    std::string strPath;
};

inline Raised RaisedBy(const std::function<void()>& fn) {
    Raised r;
    try {
        fn();
    } catch (const COxException& e) {
        r.bPlainBase = typeid(e) == typeid(COxException);
        r.strMessage = e.GetFullMessage();
        r.strPath = e.GetPath();
    }
    return r;
}

// The full message of what fn throws, which must be a TException; "(no exception)" if nothing.
template <class TException = COxException>
std::string Thrown(const std::function<void()>& fn) {
    try {
        fn();
    } catch (const COxException& e) {
        EXPECT_NE(dynamic_cast<const TException*>(&e), nullptr) << typeid(e).name() << ": " << e.GetFullMessage();
        return e.GetFullMessage();
    }
    return "(no exception)";
}

// The message of the unprocessed element left over in a parent.
inline std::string Unexpected(const std::string& strParent, const std::string& strChild, const std::string& strPath) {
    return "Failed read all the elements held within the element [" + strParent + "]. The unexpected element [" +
           strChild + "] remains un processed\nPath: " + strPath;
}

// The innermost exception of a chain.
inline const COxException& Innermost(const COxException& e) {
    return e.GetInnerException() ? Innermost(*e.GetInnerException()) : e;
}

// Runs fn on nThreads threads at once, each with a stack of 1 MiB, as worker threads of an
// application may have.
inline void OnSmallStacks(int nThreads, const std::function<void()>& fn) {
    pthread_attr_t attr;
    ASSERT_EQ(0, pthread_attr_init(&attr));
    ASSERT_EQ(0, pthread_attr_setstacksize(&attr, 1024 * 1024));
    auto run = [](void* p) -> void* {
        (*static_cast<const std::function<void()>*>(p))();
        return nullptr;
    };
    std::vector<pthread_t> threads(nThreads);
    for (pthread_t& thread : threads)
        ASSERT_EQ(0, pthread_create(&thread, &attr, run, const_cast<std::function<void()>*>(&fn)));
    for (pthread_t& thread : threads) pthread_join(thread, nullptr);
    pthread_attr_destroy(&attr);
}

}  // namespace OrvexBindTest
