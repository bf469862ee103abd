// Checks for the library's exceptions: the exact dynamic class and the exact message.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <typeinfo>

#include "orvexxml/infrastructure/exceptions.h"

namespace OrvexXmlTest {

inline void ExpectThrowExact(const std::function<void()>& func, const std::type_info& expectedType,
                             const std::string& strExpected) {
    try {
        func();
        ADD_FAILURE() << "nothing was thrown; expected: " << strExpected;
    } catch (const OrvexXml::COxException& e) {
        EXPECT_EQ(expectedType, typeid(e)) << "message: " << e.GetMessage();
        EXPECT_EQ(strExpected, e.GetMessage());
    }
}

}  // namespace OrvexXmlTest

#define EXPECT_OX_THROW(statement, ExceptionClass, message) \
    OrvexXmlTest::ExpectThrowExact([&]() { statement; }, typeid(ExceptionClass), message)
