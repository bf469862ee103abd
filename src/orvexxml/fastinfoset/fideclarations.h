#pragma once

#include "orvexxml/fastinfoset/finfodecl.h"

namespace OrvexXml {

// The text of each XML declaration that may stand in front of Fast Infoset octets, indexed
// by FInfoDecl (FInfoDecl_None has none). The writer writes them; the reader tries them in
// this order.
inline constexpr const char* kFInfoDeclarations[] = {
    "",
    "<?xml encoding='finf'?>",
    "<?xml encoding='finf' standalone='yes'?>",
    "<?xml encoding='finf' standalone='no'?>",
    "<?xml version='1.0' encoding='finf'?>",
    "<?xml version='1.0' encoding='finf' standalone='yes'?>",
    "<?xml version='1.0' encoding='finf' standalone='no'?>",
    "<?xml version='1.1' encoding='finf'?>",
    "<?xml version='1.1' encoding='finf' standalone='yes'?>",
    "<?xml version='1.1' encoding='finf' standalone='no'?>",
};

static_assert(sizeof(kFInfoDeclarations) / sizeof(kFInfoDeclarations[0]) == FInfoDecl_Version11StandaloneNo + 1,
              "one declaration text for each FInfoDecl");

}  // namespace OrvexXml
