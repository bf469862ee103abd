#pragma once

#include "orvexxml/export.h"

namespace OrvexXml {

// Implemented by generated classes of nillable complex elements. The library finds it by
// a dynamic cast from the object.
class ORVEXXML_API INillable {
public:
    virtual bool IsNil() const = 0;
    virtual void SetNil(bool bNil) = 0;

protected:
    ~INillable() {}
};

}  // namespace OrvexXml
