// Reads the plain XML that programs write, faster than a parser of all XML.
#ifndef MEASDATA_KIT_CXF_PLAIN_XML_H
#define MEASDATA_KIT_CXF_PLAIN_XML_H

#include "kit/cxf/xml_events.h"

#include <string_view>

namespace measkit::cxf {

/// Reports what read_xml() would, when the whole text is well-formed and of elements, attributes,
/// texts and comments alone. False for anything else, such as a document type, an unusual
/// declaration, an error or a receiver that ends the reading: what was reported until then does not
/// count, and the text is for read_xml(). All texts but those of character references lie in the
/// source.
bool read_plain_xml(std::string_view text, XmlReceiver& receiver);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_PLAIN_XML_H
