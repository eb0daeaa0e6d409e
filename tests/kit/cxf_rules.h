// The rules of the CxF3 schema that written documents can break.
#ifndef MEASDATA_TESTS_KIT_CXF_RULES_H
#define MEASDATA_TESTS_KIT_CXF_RULES_H

#include <string>

namespace cxf_rules {

/// What breaks a rule first; empty for a valid document.
std::string first_fault(const std::string& document);

}  // namespace cxf_rules

#endif  // MEASDATA_TESTS_KIT_CXF_RULES_H
