#pragma once

#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

// Root of the library's exception family. Thrown by value, caught by reference.
// An inner exception is held as a clone, so it outlives the catch block that made it.
class ORVEXXML_API COxException {
public:
    COxException();
    explicit COxException(const std::string& strMessage);
    COxException(const std::string& strMessage, const COxException& inner);
    COxException(const std::string& strMessage, const std::string& strPath);
    COxException(const std::string& strMessage, const std::string& strPath, const COxException& inner);
    COxException(const COxException& other);
    COxException& operator=(const COxException& other);
    virtual ~COxException();

    // The message, with "\nPath: <path>" appended when the exception was given a path.
    const std::string& GetMessage() const { return m_strMessage; }
    // The message followed by the full messages of the inner chain, one per line.
    std::string GetFullMessage() const;
    const std::string& GetPath() const { return m_strPath; }
    const COxException* GetInnerException() const { return m_pInnerException; }

protected:
    virtual COxException* Clone() const;
    friend class COxExceptionCloner;

    std::string m_strMessage;
    std::string m_strPath;
    COxException* m_pInnerException;

private:
    void Init(const std::string& strMessage, const std::string& strPath, const COxException* pInner);
};

class ORVEXXML_API COxValidationException : public COxException {
public:
    COxValidationException() {}
    COxValidationException(const std::string& strMessage, const std::string& strPath)
        : COxException(strMessage, strPath) {}
    COxValidationException(const std::string& strMessage, const std::string& strPath, const COxException& inner)
        : COxException(strMessage, strPath, inner) {}
    explicit COxValidationException(const COxException& other) : COxException(other) {}
    COxValidationException(const COxValidationException& other) : COxException(other) {}
    COxValidationException& operator=(const COxValidationException& other) = default;

protected:
    COxException* Clone() const override { return new COxValidationException(*this); }
};

class ORVEXXML_API COxInvalidValueException : public COxValidationException {
public:
    COxInvalidValueException() {}
    explicit COxInvalidValueException(const std::string& strMessage)
        : COxValidationException(strMessage, std::string()) {}
    COxInvalidValueException(const std::string& strMessage, const COxException& inner)
        : COxValidationException(strMessage, std::string(), inner) {}
    explicit COxInvalidValueException(const COxException& other) : COxValidationException(other) {}
    COxInvalidValueException(const COxInvalidValueException& other) : COxValidationException(other) {}
    COxInvalidValueException& operator=(const COxInvalidValueException& other) = default;

protected:
    COxException* Clone() const override { return new COxInvalidValueException(*this); }
};

class ORVEXXML_API COxInvalidNamespaceException : public COxValidationException {
public:
    COxInvalidNamespaceException() {}
    COxInvalidNamespaceException(const std::string& strMessage, const std::string& strPath)
        : COxValidationException(strMessage, strPath) {}
    COxInvalidNamespaceException(const std::string& strMessage, const std::string& strPath, const COxException& inner)
        : COxValidationException(strMessage, strPath, inner) {}
    explicit COxInvalidNamespaceException(const COxException& other) : COxValidationException(other) {}
    COxInvalidNamespaceException(const COxInvalidNamespaceException& other) : COxValidationException(other) {}
    COxInvalidNamespaceException& operator=(const COxInvalidNamespaceException& other) = default;

protected:
    COxException* Clone() const override { return new COxInvalidNamespaceException(*this); }
};

// The three "plain" subclasses share their constructor set: (message), (message, inner), (copy of any).
#define ORVEXXML_DECLARE_SIMPLE_EXCEPTION(Name)                                                             \
    class ORVEXXML_API Name : public COxException {                                                         \
    public:                                                                                                 \
        Name() {}                                                                                           \
        explicit Name(const std::string& strMessage) : COxException(strMessage) {}                          \
        Name(const std::string& strMessage, const COxException& inner) : COxException(strMessage, inner) {} \
        explicit Name(const COxException& other) : COxException(other) {}                                   \
        Name(const Name& other) : COxException(other) {}                                                    \
        Name& operator=(const Name& other) = default;                                                       \
                                                                                                            \
    protected:                                                                                              \
        COxException* Clone() const override { return new Name(*this); }                                    \
    };

ORVEXXML_DECLARE_SIMPLE_EXCEPTION(COxInvalidStateException)
ORVEXXML_DECLARE_SIMPLE_EXCEPTION(COxInvalidParamException)
ORVEXXML_DECLARE_SIMPLE_EXCEPTION(COxOverFlowException)

#undef ORVEXXML_DECLARE_SIMPLE_EXCEPTION

}  // namespace OrvexXml
