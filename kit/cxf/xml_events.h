// What an XML text holds, piece by piece, within limits that no text can pass.
#ifndef MEASDATA_KIT_CXF_XML_EVENTS_H
#define MEASDATA_KIT_CXF_XML_EVENTS_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace measkit::cxf {

/// An element's name; prefixes are resolved.
struct XmlName {
  std::string_view uri, local;
};

struct XmlAttribute {
  std::string_view uri, local, value;
};

/// Views are valid during the call, but texts that lie in the source stay valid as long as it.
class XmlReceiver {
 public:
  XmlReceiver() = default;
  XmlReceiver(const XmlReceiver&) = delete;
  XmlReceiver& operator=(const XmlReceiver&) = delete;
  virtual ~XmlReceiver() = default;

  /// False ends the reading.
  virtual bool begin(const XmlName& name, std::span<const XmlAttribute> attributes,
                     std::size_t offset) = 0;
  virtual void text(std::string_view piece) = 0;
  virtual void end() = 0;
};

enum class XmlEnd { complete, malformed, document_type, too_deep, stopped };

struct XmlOutcome {
  XmlEnd end = XmlEnd::complete;
  std::size_t offset = 0;  ///< where the reading ended
  std::string words;       ///< what is malformed, or the root's name in the document type
};

/// Reads a text in UTF-8, whatever encoding its declaration names. A document type ends the
/// reading, so there are no entities to expand.
XmlOutcome read_xml(std::string_view text, XmlReceiver& receiver);

}  // namespace measkit::cxf

#endif  // MEASDATA_KIT_CXF_XML_EVENTS_H
