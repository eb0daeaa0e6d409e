// From the text of a CxF3 document to what it says.
#ifndef MEASDATA_KIT_CXF_DOCUMENT_READER_H
#define MEASDATA_KIT_CXF_DOCUMENT_READER_H

#include "kit/cxf/document.h"
#include "kit/cxf/xml_events.h"
#include "kit/preflight/text_pool.h"

#include <string_view>

namespace measkit::cxf {

enum class Form { other, older_cxf, cxf3 };

struct DocumentReading {
  Form form = Form::other;  ///< as the root element says
  XmlOutcome outcome;
  Document document;
};

/// Views of the result lie in the text or in the pool.
DocumentReading read_document(std::string_view text, TextPool& pool);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_DOCUMENT_READER_H
