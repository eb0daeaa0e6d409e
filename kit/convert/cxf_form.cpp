#include "kit/convert/cxf_form.h"

#include "kit/convert/cxf_columns.h"
#include "kit/convert/cxf_description.h"
#include "kit/convert/cxf_markup.h"
#include "kit/convert/cxf_objects.h"

#include <string_view>

namespace measkit {
namespace {

constexpr std::string_view kStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<cc:CxF xmlns:cc=\"http://colorexchangeformat.com/CxF3-core\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n";

// A guess: markup of an object, and twelve characters a number.
std::size_t likely_size(const Table& table) {
  constexpr std::size_t kObject = 600, kCell = 12, kHead = 10000;
  return kHead + table.row_count() * (kObject + kCell * table.fields.size());
}

void write_objects(CxfObjects& objects, const std::string& type, bool in_pairs, CxfMarkup& out) {
  out.line(2, "<cc:ObjectCollection>");
  if (in_pairs) {
    objects.write_pairs(type);
  } else {
    objects.write_samples();
  }
  out.line(2, "</cc:ObjectCollection>");
}

}  // namespace

std::string cxf_of(Table& table, const Chart& chart, const CxfForm& form,
                   std::vector<std::string>& left_behind) {
  const CxfColumns columns = cxf_columns_of(table, chart, left_behind);
  const HeaderLine* const created = std::as_const(table).find("CREATED");
  const bool has_date = created != nullptr && is_date_and_time(created->value);
  const std::string type =
      (chart.conditions.m ? chart.conditions.m->value + "_" : std::string()) + "Measurement";
  const CxfSpecificationIds ids = {type + "_spec", "Unknown"};

  CxfMarkup out;
  out.reserve(likely_size(table));
  out.raw(kStart);
  write_cxf_information(table, out);
  out.line(1, "<cc:Resources>");
  CxfObjects objects(table, columns, ids, has_date ? created->value : form.time_of_writing, out);
  if (table.row_count() != 0) write_objects(objects, type, form.in_pairs, out);
  write_cxf_specifications(table, chart, columns, ids, out);
  out.raw("\t</cc:Resources>\n</cc:CxF>\n");
  objects.tell(left_behind);
  const std::size_t forbidden = out.forbidden_characters() + objects.forbidden_characters();
  if (forbidden != 0) {
    left_behind.push_back(
        "Control codes that XML forbids are left out: " + std::to_string(forbidden) + ".");
  }
  return out.take();
}

}  // namespace measkit
