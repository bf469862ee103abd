#include "orvexxml/fastinfoset/fastinfosetbinarydata.h"

#include <gtest/gtest.h>

#include <string>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/localencoding.h"

using namespace OrvexXml;

namespace {

std::string Hex(const CBinaryData& data) { return data.GetAsHexString(); }

CFastInfosetBinaryData FromHex(const char* pszHex) {
    CFastInfosetBinaryData data;
    data.SetAsHexString(pszHex);
    return data;
}

}  // namespace

// Each algorithm writes the octets of the standard and reads them back to the library's text
// form; the extremes of each integer size and the special floats included.
TEST(FastInfosetBinaryData, EncodesAndReadsBack) {
    struct Case {
        OxULong dwAlgorithm;
        const char* pszText;
        const char* pszOctets;
        const char* pszReadBack;
    } const cases[] = {
        {1, "0aFf", "0AFF", "0AFF"},
        {2, "AAEC/w==", "000102FF", "AAEC/w=="},
        {3, "-2", "FFFE", "-2"},
        {3, "-32768", "8000", "-32768"},
        {3, "255", "00FF", "255"},
        {4, "-2147483648", "80000000", "-2147483648"},
        {4, "65535", "0000FFFF", "65535"},
        {5, "9223372036854775807", "7FFFFFFFFFFFFFFF", "9223372036854775807"},
        {5, "-9223372036854775808", "8000000000000000", "-9223372036854775808"},
        {6, "true", "38", "true"},
        {6, "0", "30", "false"},
        {7, "1", "3F800000", "1"},
        {7, "-INF", "FF800000", "-INF"},
        {7, "1e39", "7F800000", "INF"},  // no range test: beyond float is an infinity
        {7, "1.401298e-45", "00000001", "1.401298e-45"},
        {8, "1", "3FF0000000000000", "1"},
        {8, "-0", "8000000000000000", "-0"},
        {8, "1.7976931348623157e308", "7FEFFFFFFFFFFFFF", "1.797693134862316e+308"},
        {9, "00112233445566778899aabbccddeeff", "00112233445566778899AABBCCDDEEFF", "00112233445566778899AABBCCDDEEFF"},
    };
    for (const Case& c : cases) {
        CFastInfosetBinaryData data;
        data.SetAsEncodedString(c.dwAlgorithm, c.pszText);
        EXPECT_EQ(c.pszOctets, Hex(data)) << c.dwAlgorithm << " " << c.pszText;
        EXPECT_EQ(c.pszReadBack, data.GetAsString(c.dwAlgorithm)) << c.dwAlgorithm << " " << c.pszText;
    }
}

// A document may hold a sequence in one item: each value's text, one blank between them.
TEST(FastInfosetBinaryData, ReadsSequences) {
    struct Case {
        OxULong dwAlgorithm;
        const char* pszOctets;
        const char* pszText;
    } const cases[] = {
        {4, "0000010000000002", "256 2"},
        {3, "7FFF8000", "32767 -32768"},
        {6, "28", "true false"},
        {6, "0F", "true true true true"},                       // no unused bit
        {6, "5A80", "true false true false true false false"},  // 5 unused bits at the end
        {6, "70", ""},                                          // all 3 free bits unused: no value
        {7, "3F800000FF800000", "1 -INF"},
        {8, "7FF8000000000000", "NaN"},
        {9, "000102030405060708090A0B0C0D0E0FF0F1F2F3F4F5F6F7F8F9FAFBFCFDFEFF",
         "000102030405060708090A0B0C0D0E0F F0F1F2F3F4F5F6F7F8F9FAFBFCFDFEFF"},
    };
    for (const Case& c : cases) EXPECT_EQ(c.pszText, FromHex(c.pszOctets).GetAsString(c.dwAlgorithm)) << c.pszOctets;
    for (OxULong dwAlgorithm = 1; dwAlgorithm <= 10; ++dwAlgorithm)
        EXPECT_EQ("", CFastInfosetBinaryData().GetAsString(dwAlgorithm)) << dwAlgorithm;
}

// cdata is the UTF-8 form of the local text.
TEST(FastInfosetBinaryData, CdataIsUtf8OfLocalText) {
    CFastInfosetBinaryData data;
    data.SetAsEncodedString(10, "a\xC3\xA9");
    EXPECT_EQ("61C3A9", Hex(data));
    SetLocalCharEncoding(1252);
    data.SetAsEncodedString(10, "a\xE9\x80");
    SetLocalCharEncoding(ORVEXXML_CP_UTF8);
    EXPECT_EQ("61C3A9E282AC", Hex(data));
}

// Every refusal, with its exact message and class; a refused encoding leaves no octets.
TEST(FastInfosetBinaryData, RefusalsCarryTheirMessages) {
    struct ReadCase {
        OxULong dwAlgorithm;
        const char* pszOctets;
        const char* pszMessage;
    } const reads[] = {
        {3, "FFFFFF", "Invalid value for SHORT byte encoding."},
        {4, "000000", "Invalid value for INT byte encoding."},
        {5, "000000000000000000", "Invalid value for LONG byte encoding."},
        {7, "3F80", "Invalid value for FLOAT byte encoding."},
        {8, "3FF00000", "Invalid value for DOUBLE byte encoding."},
        {9, "00112233445566778899AABBCCDDEEFF00", "Invalid value for UUID byte encoding."},
        {10, "61", "Unknown byte encoding."},
        {0, "61", "Unknown byte encoding."},
        {11, "", "Unknown byte encoding."},
    };
    for (const ReadCase& c : reads) {
        try {
            FromHex(c.pszOctets).GetAsString(c.dwAlgorithm);
            ADD_FAILURE() << c.dwAlgorithm << " " << c.pszOctets;
        } catch (const COxException& e) {
            EXPECT_EQ(c.pszMessage, e.GetMessage());
        }
    }

    // A text that the value's conversion refuses; an integer out of the algorithm's range.
    struct WriteCase {
        OxULong dwAlgorithm;
        const char* pszText;
        bool bInvalidValue;  // COxInvalidValueException rather than the base class
        const char* pszMessage;
    } const writes[] = {
        {0, "1", false, "Unknown byte encoding."},
        {11, "1", false, "Unknown byte encoding."},
        {1, "ABC", false, "Invalid length in hex string"},
        {9, "00112233-4455-6677-8899-AABBCCDDEEFF", false, "Invalid char in hex string [-]"},
        {3, "x1", true, "The value [x1] can not be converted to a i4"},
        {3, "32768", true, "The value [32768] is to large to fit in a i2"},
        {4, "2147483648", true, "The value [2147483648] is to large to fit in a i4"},
        {5, "9223372036854775808", true, "The value [9223372036854775808] is to large to fit in a i8"},
        {6, "yes", true,
         "A Boolean Value read from an XML document was invalid [yes]. Valid values are 'true', 'false', '1', or '0'"},
        {7, "1,5", true, "The value [1,5] can not be converted to a r4"},
        {8, "", true, "The value [] can not be converted to a r8"},
    };
    for (const WriteCase& c : writes) {
        CFastInfosetBinaryData data("old");
        try {
            data.SetAsEncodedString(c.dwAlgorithm, c.pszText);
            ADD_FAILURE() << c.dwAlgorithm << " " << c.pszText;
        } catch (const COxInvalidValueException& e) {
            EXPECT_TRUE(c.bInvalidValue) << c.pszText;
            EXPECT_EQ(c.pszMessage, e.GetMessage());
        } catch (const COxException& e) {
            EXPECT_FALSE(c.bInvalidValue) << c.pszText;
            EXPECT_EQ(c.pszMessage, e.GetMessage());
        }
        if (c.dwAlgorithm >= 1 && c.dwAlgorithm <= 10) {
            EXPECT_EQ(0u, data.GetLength()) << c.pszText;
        }
    }
}
