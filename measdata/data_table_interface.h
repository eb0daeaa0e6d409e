// A table of text cells under named fields.
#ifndef MEASDATA_MEASDATA_DATA_TABLE_INTERFACE_H
#define MEASDATA_MEASDATA_DATA_TABLE_INTERFACE_H

#include <string>
#include <string_view>

namespace vantor::MeasData {

class DataTableInterface {
 public:
  DataTableInterface() = default;
  DataTableInterface(const DataTableInterface&) = delete;
  DataTableInterface& operator=(const DataTableInterface&) = delete;
  virtual ~DataTableInterface() = default;

  /// Reads the file named by a UTF-8 path; true when it could be read without an error.
  virtual bool load_file(const char* path) = 0;
  virtual int field_count() const = 0;
  /// The identifier at `index`, empty when there is none.
  virtual std::string field_name(int index) const = 0;
  /// The first index whose identifier is exactly `name`, -1 when there is none.
  virtual int field_index(std::string_view name) const = 0;
  virtual bool has_field(std::string_view name) const = 0;
  virtual int row_count() const = 0;
  /// The text of a cell, empty when there is none.
  virtual std::string value(int row, int column) const = 0;
};

}  // namespace vantor::MeasData

#endif  // MEASDATA_MEASDATA_DATA_TABLE_INTERFACE_H
