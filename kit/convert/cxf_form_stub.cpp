#include "kit/convert/conversion.h"
#include "kit/convert/cxf_form.h"
namespace measkit {
std::string cxf_of(Table&, const Chart&, const CxfForm&, std::vector<std::string>&) {
  throw ConversionRefusal("CxF cannot be written yet");
}
}  // namespace measkit
