// Checks for the library's exceptions: the exact dynamic class and the exact message.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "orvexxml/infrastructure/exceptions.h"

namespace OrvexXmlTest {

template <class TException, class TFunc>
void ExpectThrowExact(TFunc func, const std::string& strExpected) {
    try {
        func();
        ADD_FAILURE() << "nothing was thrown; expected: " << strExpected;
    } catch (const OrvexXml::COxException& e) {
        EXPECT_EQ(typeid(TException), typeid(e)) << "message: " << e.GetMessage();
        EXPECT_EQ(strExpected, e.GetMessage());
    }
}

}  // namespace OrvexXmlTest

#define EXPECT_OX_THROW(statement, ExceptionClass, message) \
    OrvexXmlTest::ExpectThrowExact<ExceptionClass>([&]() { statement; }, message)
