// File names and URIs of schema documents: the compiler reads local files only.
#pragma once

#include <string>

namespace OrvexXsd {

class CFilePaths {
public:
    // Whether a reference names a scheme other than file: (http:, https:, ftp:, urn: ...).
    static bool IsRemote(const std::string& strReference);
    // The local path of a file: URI, or the reference itself when it has no scheme.
    static std::string ToPath(const std::string& strReference);
    // The absolute, normalised form of a path relative to a directory (or to the current
    // directory when strDirectory is empty).
    static std::string Resolve(const std::string& strDirectory, const std::string& strPath);
    static std::string DirectoryOf(const std::string& strPath);
    static std::string BaseName(const std::string& strPath);
    static bool IsFile(const std::string& strPath);
    // The path as messages show it: relative to the current directory when below it.
    static std::string Display(const std::string& strPath);
};

}  // namespace OrvexXsd
