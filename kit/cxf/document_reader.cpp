#include "kit/cxf/document_reader.h"

#include "kit/cxf/object_reader.h"
#include "kit/cxf/plain_xml.h"
#include "kit/cxf/record.h"
#include "kit/cxf/specification_reader.h"

#include <string>
#include <unordered_map>
#include <utility>

namespace measkit::cxf {
namespace {

constexpr std::string_view kNamespace = "http://colorexchangeformat.com/CxF3-core";

// CxF2 has a namespace of its own, CxF1 another root name.
Form form_of(const XmlName& root) {
  if (root.local == "CxF" && root.uri == kNamespace) return Form::cxf3;
  const bool is_older =
      root.local == "CXF" || root.uri.find("colorexchangeformat") != std::string_view::npos;
  return is_older || root.local == "CxF" ? Form::older_cxf : Form::other;
}

bool is_frame(std::string_view name) {
  return name == "Resources" || name == "ObjectCollection" ||
         name == "ColorSpecificationCollection";
}

bool is_record(std::string_view name) {
  return name == "Object" || name == "ColorSpecification" || name == "FileInformation";
}

class DocumentReader final : public XmlReceiver {
 public:
  DocumentReader(std::string_view text, TextPool& pool) : pool_(pool), record_(text, pool) {}

  bool begin(const XmlName& name, std::span<const XmlAttribute> attributes,
             std::size_t offset) override {
    const bool is_foreign = name.uri != kNamespace;
    if (is_before_root_) {
      is_before_root_ = false;
      result_.form = form_of(name);
      return result_.form == Form::cxf3;
    }
    if (skipped_levels_ != 0) {
      ++skipped_levels_;
      look_for_instrument(attributes);
    } else if (is_recording_ || (!is_foreign && is_record(name.local))) {
      is_recording_ = true;
      record_.begin(name, is_foreign, attributes, offset);
    } else if (is_foreign || !is_frame(name.local)) {
      result_.document.passed_over.add(name.local, offset);
      skipped_levels_ = 1;
    }
    return true;
  }

  void text(std::string_view piece) override {
    if (is_recording_) record_.text(piece);
  }

  void end() override {
    if (skipped_levels_ != 0) {
      --skipped_levels_;
    } else if (is_recording_) {
      record_.end();
      if (record_.is_complete()) take_record();
    }
  }

  DocumentReading take() {
    name_kinds_of_points();
    result_.document.too_long = record_.too_long();
    return std::move(result_);
  }

 private:
  // Specifications come behind the values.
  void name_kinds_of_points() {
    Document& document = result_.document;
    for (Measured& value : document.colours) {
      if (!value.is_by_points) continue;
      const std::string_view type =
          document.specifications[static_cast<std::size_t>(value.specification)].type;
      if (type.find("Emissive") != std::string_view::npos) value.kind = Kind::emission;
      if (type.find("Transmittance") != std::string_view::npos) value.kind = Kind::transmittance;
    }
  }

  void take_record() {
    Document& document = result_.document;
    const Node& root = record_.root();
    if (root.name == "Object") {
      read_object(
          record_, [this](std::string_view id) { return specification(id); }, pool_, document);
    } else if (root.name == "FileInformation") {
      read_file_information(record_, document);
    } else {
      const int index = specification(record_.attribute(root, "Id"));
      read_specification(record_, document.specifications[static_cast<std::size_t>(index)],
                         document.passed_over, pool_);
    }
    record_.clear();
    is_recording_ = false;
  }

  // Values may name a specification before it is read, and one that there is not.
  int specification(std::string_view id) {
    std::vector<Specification>& all = result_.document.specifications;
    const auto [found, is_new] = specifications_.emplace(id, static_cast<int>(all.size()));
    if (is_new) all.emplace_back().id = id;
    return found->second;
  }

  void look_for_instrument(std::span<const XmlAttribute> attributes) {
    for (const XmlAttribute& attribute : attributes) {
      if (attribute.local == "MeasurementDevice" && !attribute.value.empty()) {
        constexpr std::size_t kLongest = 200;
        result_.document.custom_instrument = pool_.add(attribute.value.substr(0, kLongest));
      }
    }
  }

  TextPool& pool_;
  Record record_;
  DocumentReading result_;
  std::unordered_map<std::string_view, int> specifications_;
  std::size_t skipped_levels_ = 0;
  bool is_before_root_ = true, is_recording_ = false;
};

// A document type names the root before it comes.
Form form_named(std::string_view root) {
  root.remove_prefix(root.find(':') + 1);
  return root == "CxF" || root == "CXF" ? Form::cxf3 : Form::other;
}

}  // namespace

DocumentReading read_document(std::string_view text, TextPool& pool) {
  DocumentReader plain(text, pool);
  if (read_plain_xml(text, plain)) return plain.take();
  DocumentReader reader(text, pool);
  XmlOutcome outcome = read_xml(text, reader);
  DocumentReading result = reader.take();
  result.outcome = std::move(outcome);
  if (result.outcome.end == XmlEnd::document_type) {
    result.form = form_named(result.outcome.words);
  }
  return result;
}

}  // namespace measkit::cxf
