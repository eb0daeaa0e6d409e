// What a document says about itself and about how its values were made.
#ifndef MEASDATA_KIT_CXF_SPECIFICATION_READER_H
#define MEASDATA_KIT_CXF_SPECIFICATION_READER_H

#include "kit/cxf/document.h"
#include "kit/cxf/record.h"

namespace measkit::cxf {

void read_file_information(const Record& record, Document& document);

void read_specification(const Record& record, Specification& specification,
                        CountedNames& passed_over, TextPool& pool);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_SPECIFICATION_READER_H
