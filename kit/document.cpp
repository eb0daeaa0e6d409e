#include "kit/document.h"

#include <algorithm>

namespace measkit {
namespace {

using vantor::MeasData::FileStatus;

// Any text can be read as a semicolon table; it is one when its columns are known. (A table that
// lacks the first ink still has one device channel.)
LoadedText load_as_it_stands(std::string_view bytes, const char* name, bool& is_semicolon_table) {
  LoadedText file(bytes, name);
  is_semicolon_table = false;
  if (file.is_loaded()) return file;
  LoadedText table(bytes, name, 1);
  void* const handle = table.handle();
  const bool has_known_columns =
      num_device_channels(handle) == 4 || has_color_data(handle) == 1 || has_xyz_data(handle) == 1;
  is_semicolon_table = table.is_loaded() && num_patches(handle) > 0 && has_known_columns;
  return is_semicolon_table ? std::move(table) : std::move(file);
}

std::string_view base_name(std::string_view path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace

std::unique_ptr<Document> Document::open_file(const std::string& path, Opening opening) {
  std::unique_ptr<Document> document(new Document(path, opening));
  switch (document->file_.read(path.c_str())) {
    case FileStatus::ok:
      document->read(document->file_.text());
      break;
    case FileStatus::not_opened:
      document->preflighted_.findings.add(Severity::lost, "not-opened",
                                          "The file cannot be opened.");
      break;
    case FileStatus::not_read:
      document->preflighted_.findings.add(Severity::lost, "not-read", "The file cannot be read.");
      break;
  }
  return document;
}

std::unique_ptr<Document> Document::open_block(std::string bytes, std::string name,
                                               Opening opening) {
  std::unique_ptr<Document> document(new Document(std::move(name), opening));
  document->block_ = std::move(bytes);
  document->read(document->block_);
  return document;
}

void Document::read(std::string_view bytes) {
  if (opening_ == Opening::as_is) {
    read_as_is(bytes);
  } else {
    preflighted_ = preflight(bytes, name_.c_str());
  }
  for (std::size_t i = 0; i < size(); ++i) {
    std::string name(base_name(name_));
    if (!plain(i).table.own_name.empty()) {
      name += ", " + plain(i).table.own_name;
    } else if (i != 0) {
      name += ", table " + std::to_string(i + 1);
    }
    chart_names_.push_back(std::move(name));
  }
}

void Document::read_as_is(std::string_view bytes) {
  bool is_semicolon_table = false;
  LoadedText loaded = load_as_it_stands(bytes, name_.c_str(), is_semicolon_table);
  if (!loaded.is_loaded()) {
    preflighted_.findings.add(
        Severity::lost, "not-loaded",
        "The library cannot read the file: " + first_message(loaded.handle()));
    return;
  }
  preflighted_.tables.push_back(std::make_unique<PlainTable>());
  PlainTable& plain = *preflighted_.tables.back();
  plain.text = bytes;
  plain.loaded = std::move(loaded);
}

bool Document::has_patches() const {
  return std::any_of(preflighted_.tables.begin(), preflighted_.tables.end(),
                     [](const auto& plain) { return num_patches(plain->loaded.handle()) > 0; });
}

bool Document::has_other_than_notes() {
  const auto is_more_than_note = [](const Finding& finding) {
    return finding.severity != Severity::note;
  };
  return findings().has_other_than_notes() ||
         std::ranges::any_of(charts(), [&](const Chart& chart) {
           return std::ranges::any_of(chart.findings, is_more_than_note);
         });
}

std::span<const Chart> Document::charts() {
  for (std::size_t i = charts_.size(); i < size(); ++i) {
    charts_.push_back(opening_ == Opening::as_is
                          ? chart_as_it_stands(plain(i).loaded.handle(), chart_names_[i], effort_)
                          : chart_of(plain(i), chart_names_[i], effort_));
  }
  return charts_;
}

std::vector<Chart> Document::page_charts() {
  std::vector<Chart> pages(charts().begin(), charts().end());
  if (pages.empty()) {
    pages.emplace_back();
    pages.front().name = base_name(name_);
  }
  std::vector<Finding>& first = pages.front().findings;
  first.insert(first.begin(), findings().list().begin(), findings().list().end());
  pages.front().more_findings += findings().more();
  return pages;
}

}  // namespace measkit
