// The text of a schema component's xs:documentation, for the comments of generated code.
#pragma once

#include <string>
#include <xercesc/framework/psvi/XSAnnotation.hpp>
#include <xercesc/framework/psvi/XSConstants.hpp>

namespace OrvexXsd {

class CDocumentation {
public:
    // The text of every xs:documentation of the annotations, markup dropped, each line trimmed,
    // runs of empty lines made one, documentation elements apart by an empty line; lines end
    // with '\n'. Empty when there is none.
    static std::string Of(xercesc::XSAnnotation* pAnnotation);
    static std::string Of(xercesc::XSAnnotationList* pAnnotations);
    // The two texts, apart by an empty line when both have one.
    static std::string Join(const std::string& strFirst, const std::string& strSecond);
    // Text as C++ line comments at the given indentation.
    static std::string AsComment(const std::string& strText, const std::string& strIndent);
};

}  // namespace OrvexXsd
