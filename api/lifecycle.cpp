// Handles, loading, messages and version.
#include "api/cancellation.h"
#include "api/measdata.h"
#include "api/own_memory.h"
#include "api/parse.h"
#include "api/parser_state.h"
#include "dataset/build.h"
#include "dataset/fill.h"
#include "measdata/meas_file_parser.h"

#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using vantor::Api::ParserState;
using vantor::Api::state_of;
using vantor::DataSet::PatchDataSet;
using vantor::MeasData::MeasFileParser;

namespace {

using Names = std::vector<std::string>;

// Leaves no patches, and the messages that explain the failure.
void clear_after_failure(ParserState& state) {
  std::string messages = std::move(state.chart.all_patches.messages);
  state.chart.all_patches.reset();
  state.chart.unique_patches.reset();
  state.chart.paper_white_index = -1;
  state.chart.all_patches.messages = std::move(messages);
}

void clear_without_memory(ParserState& state) {
  state.chart.all_patches.messages.clear();
  clear_after_failure(state);
  state.chart.all_patches.is_out_of_memory = true;
}

// The build after a successful read.
int build(ParserState& state, const Names& field_names, const char* name) noexcept {
  const vantor::DataSet::DeviceFlags flags_before = state.chart.device_flags;
  try {
    return vantor::DataSet::build_chart(state.chart, field_names, name) ? 1 : 0;
  } catch (const std::exception&) {
    state.chart.device_flags = flags_before;
    clear_without_memory(state);
    return 0;
  }
}

// `read` fills all_patches with a reader. The name may be a text that this handle returned.
template <typename Read>
int load(void* handle, const char* name, Read read) noexcept {
  if (handle == nullptr) return 0;
  const vantor::Api::NoCancellation no_cancellation;
  ParserState& state = *state_of(handle);
  try {
    const std::string name_copy(name == nullptr ? "" : name);
    // Its tables are gone before the build, which has tables of its own.
    auto reader = std::make_unique<MeasFileParser>(state.parse_mode + 1);
    if (read(state.chart.all_patches, *reader, name_copy)) {
      const Names names = vantor::DataSet::device_field_names(state.chart.all_patches, *reader);
      reader.reset();
      return build(state, names, name == nullptr ? nullptr : name_copy.c_str());
    }
    clear_after_failure(state);
  } catch (const std::exception&) {  // no memory, or more than a container can hold
    clear_without_memory(state);
  }
  return 0;
}

}  // namespace

void* init_parser() noexcept {
  try {
    return new ParserState;
  } catch (const std::exception&) {
    return nullptr;
  }
}

void cleanup_parser(void** handle) noexcept {
  if (handle == nullptr) return;
  delete state_of(*handle);
  *handle = nullptr;
}

int parse_file(void* handle, const char* path) noexcept {
  const auto read = [](PatchDataSet& patches, MeasFileParser& reader, const std::string& name) {
    return vantor::DataSet::read_file(patches, name.c_str(), reader);
  };
  return load(handle, path == nullptr ? "" : path, read);
}

int parse_mem(void* handle, size_t length, const char* block, const char* name) noexcept {
  if (block == nullptr) length = 0;
  std::string copy;  // outlives the reader, which keeps views of the text
  const auto read = [=, &copy](PatchDataSet& patches, MeasFileParser& reader, const std::string&) {
    std::string_view text(block, length);
    if (length != 0 && vantor::Api::is_own_memory(*state_of(handle), block)) text = copy = text;
    return vantor::DataSet::read_memory(patches, text, reader);
  };
  return load(handle, name, read);
}

int parse(void* handle, MeasFileParser* reader, const char* name) noexcept {
  if (handle == nullptr || reader == nullptr) return 0;
  const vantor::Api::NoCancellation no_cancellation;
  ParserState& state = *state_of(handle);
  try {
    return build(state, vantor::DataSet::device_field_names(state.chart.all_patches, *reader),
                 name);
  } catch (const std::exception&) {
    clear_without_memory(state);
    return 0;
  }
}

void set_parse_mode(void* handle, int mode) noexcept {
  if (handle != nullptr && (mode == 0 || mode == 1)) state_of(handle)->parse_mode = mode;
}

int get_parse_mode(void* handle) noexcept {
  return handle == nullptr ? 0 : state_of(handle)->parse_mode;
}

const char* parse_messages(void* handle) noexcept {
  if (handle == nullptr) return nullptr;
  const PatchDataSet& patches = state_of(handle)->chart.all_patches;
  return patches.is_out_of_memory ? "Out of memory\n" : patches.messages.c_str();
}

void* pass_unique_data(void* handle) noexcept {
  return handle == nullptr ? nullptr : &state_of(handle)->chart.unique_patches;
}

const char* parser_version() noexcept { return "1.9.7"; }
int parser_version_major() noexcept { return 1; }
int parser_version_minor() noexcept { return 9; }
int parser_version_bugfix() noexcept { return 7; }
