// What to call the patches of a chart and where they are.
#ifndef MEASDATA_KIT_CXF_PATCH_NAMES_H
#define MEASDATA_KIT_CXF_PATCH_NAMES_H

#include "kit/cxf/document.h"
#include "kit/cxf/layers.h"
#include "kit/preflight/text_pool.h"

#include <string_view>
#include <vector>

namespace measkit::cxf {

/// The first text that an object of the patch has.
std::string_view text_of(const Document& document, const Patch& patch,
                         std::string_view Object::*member);

/// Sample ids that are given and unique, else running numbers.
std::vector<std::string_view> ids_of(const Document& document, const Layer& layer, TextPool& pool);

/// Names that people gave; empty without any.
std::vector<std::string_view> names_of(const Document& document, const Layer& layer);

/// Places such as "A1" or, on several pages, "2C14"; empty without any.
std::vector<std::string_view> locations_of(const Document& document, const Layer& layer,
                                           TextPool& pool);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_PATCH_NAMES_H
