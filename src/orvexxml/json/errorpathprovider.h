#pragma once

#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

// Tells where in a JSON document the reader stands, as a path for error messages. The
// reader asks the head of its handler chain for it when a parse fails.
class ORVEXXML_API IErrorPathProvider {
public:
    virtual ~IErrorPathProvider();
    virtual std::string GetErrorPath() = 0;
};

}  // namespace OrvexXml
