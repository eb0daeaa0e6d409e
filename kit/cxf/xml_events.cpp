#include "kit/cxf/xml_events.h"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

namespace measkit::cxf {
namespace {

constexpr char kSeparator = '\n';  // between namespace and local name; neither can hold it
constexpr int kMostLevels = 256;   // real documents have 8

struct ParserFree {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

void split_name(const char* name, std::string_view& uri, std::string_view& local) {
  const std::string_view whole(name);
  const std::size_t at = whole.rfind(kSeparator);
  uri = at == std::string_view::npos ? std::string_view() : whole.substr(0, at);
  local = at == std::string_view::npos ? whole : whole.substr(at + 1);
}

class Reading {
 public:
  explicit Reading(XmlReceiver& receiver)
      : parser_(XML_ParserCreateNS("UTF-8", kSeparator)), receiver_(receiver) {
    if (!parser_) throw std::bad_alloc();
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), &Reading::on_begin, &Reading::on_end);
    XML_SetCharacterDataHandler(parser_.get(), &Reading::on_text);
    XML_SetStartDoctypeDeclHandler(parser_.get(), &Reading::on_document_type);
  }

  XmlOutcome read(std::string_view text) {
    constexpr std::size_t kMostAtOnce = std::size_t{1} << 30U;  // expat takes an int
    bool is_read = true;
    do {
      const std::size_t size = std::min(text.size(), kMostAtOnce);
      const bool is_last = size == text.size();
      is_read = XML_Parse(parser_.get(), text.data(), static_cast<int>(size), is_last ? 1 : 0) ==
                XML_STATUS_OK;
      text.remove_prefix(size);
    } while (is_read && !text.empty());
    if (failure_) std::rethrow_exception(failure_);
    if (!is_read) {
      outcome_.offset = offset();
      if (outcome_.end == XmlEnd::complete) {
        outcome_.end = XmlEnd::malformed;
        outcome_.words = XML_ErrorString(XML_GetErrorCode(parser_.get()));
      }
    }
    return std::move(outcome_);
  }

 private:
  // Expat is C: no exception may pass it.
  template <typename Action>
  static void guarded(void* self, Action action) {
    Reading& reading = *static_cast<Reading*>(self);
    if (reading.failure_ || reading.outcome_.end != XmlEnd::complete) return;
    try {
      action(reading);
    } catch (...) {
      reading.failure_ = std::current_exception();
      XML_StopParser(reading.parser_.get(), XML_FALSE);
    }
  }

  static void XMLCALL on_begin(void* self, const XML_Char* name, const XML_Char** attributes) {
    guarded(self, [&](Reading& reading) { reading.begin(name, attributes); });
  }
  static void XMLCALL on_end(void* self, const XML_Char*) {
    guarded(self, [](Reading& reading) {
      --reading.levels_;
      reading.receiver_.end();
    });
  }
  static void XMLCALL on_text(void* self, const XML_Char* text, int size) {
    guarded(self, [&](Reading& reading) {
      reading.receiver_.text({text, static_cast<std::size_t>(size)});
    });
  }
  static void XMLCALL on_document_type(void* self, const XML_Char* name, const XML_Char*,
                                       const XML_Char*, int) {
    guarded(self, [&](Reading& reading) {
      reading.outcome_.words = name;
      reading.stop(XmlEnd::document_type);
    });
  }

  void begin(const XML_Char* name, const XML_Char** attributes) {
    if (++levels_ > kMostLevels) {
      stop(XmlEnd::too_deep);
      return;
    }
    XmlName element;
    split_name(name, element.uri, element.local);
    attributes_.clear();
    for (; *attributes != nullptr; attributes += 2) {
      XmlAttribute& attribute = attributes_.emplace_back();
      split_name(attributes[0], attribute.uri, attribute.local);
      attribute.value = attributes[1];
    }
    if (!receiver_.begin(element, attributes_, offset())) stop(XmlEnd::stopped);
  }

  void stop(XmlEnd end) {
    outcome_.end = end;
    XML_StopParser(parser_.get(), XML_FALSE);
  }

  std::size_t offset() const {
    return static_cast<std::size_t>(std::max<XML_Index>(0, XML_GetCurrentByteIndex(parser_.get())));
  }

  std::unique_ptr<XML_ParserStruct, ParserFree> parser_;
  XmlReceiver& receiver_;
  std::vector<XmlAttribute> attributes_;
  XmlOutcome outcome_;
  std::exception_ptr failure_;
  int levels_ = 0;
};

}  // namespace

XmlOutcome read_xml(std::string_view text, XmlReceiver& receiver) {
  return Reading(receiver).read(text);
}

}  // namespace measkit::cxf
