// One object of a document: its values, device values, place and tags.
#ifndef MEASDATA_KIT_CXF_OBJECT_READER_H
#define MEASDATA_KIT_CXF_OBJECT_READER_H

#include "kit/cxf/document.h"
#include "kit/cxf/record.h"

#include <functional>
#include <string_view>

namespace measkit::cxf {

/// The index of the specification that values name by its id.
using SpecificationOf = std::function<int(std::string_view id)>;

/// Appends the object to the document.
void read_object(const Record& record, const SpecificationOf& specification_of, TextPool& pool,
                 Document& document);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_OBJECT_READER_H
