/* Calls every function of the C interface with handles in every state, and with arguments that no
 * caller means to give. Prints the answers that differ from those of the header; 1 when any does.
 */
#include "measdata.h"

#include <limits.h>
#include <stdio.h>
#include <string.h>

/* The states of a handle. After a failed load, it is as if it were fresh but for the messages. */
enum { NULL_HANDLE, FRESH, FAILED, LOADED, MERGED, NOT_MERGED, STATES };
static const char* const state_names[STATES] = {"null",   "fresh",  "failed",
                                                "loaded", "merged", "not merged"};

static int is_handle(int state) { return state != MERGED && state != NOT_MERGED; }

static const char text[] =
    "CGATS.17\n"
    "OWN value\n"
    "BEGIN_DATA_FORMAT\n"
    "SAMPLE_ID SAMPLE_LOC SAMPLE_NAME CMY_C CMY_M CMY_Y LAB_L LAB_A LAB_B XYZ_X XYZ_Y XYZ_Z\n"
    "END_DATA_FORMAT\n"
    "BEGIN_DATA\n"
    "1 A1 paper 0 0 0 90 1 2 80 81 82\n"
    "2 A2 paper 0 0 0 90 1 2 80 81 82\n"
    "3 A3 cyan 100 0 0 50 3 4 10 11 12\n"
    "END_DATA\n";

static const char spectral_text[] =
    "CGATS.17\n"
    "BEGIN_DATA_FORMAT\n"
    "SPECTRAL_NM400 SPECTRAL_NM410 SPECTRAL_NM420\n"
    "END_DATA_FORMAT\n"
    "BEGIN_DATA\n"
    "1 2 3\n"
    "END_DATA\n";

static int faults = 0;

static void check(int holds, const char* function, int state, int position) {
  if (holds) return;
  ++faults;
  printf("%s: wrong for the %s handle, position %d\n", function, state_names[state], position);
}

static int same_text(const char* a, const char* b) {
  return a == NULL || b == NULL ? a == b : strcmp(a, b) == 0;
}

/* Marks answers that only the handle itself gives: the merged patches are not asked. */
#define NOT_ASKED INT_MIN
#define Q(name) #name, name

static const struct {
  const char* name;
  int (*ask)(void*);
  int null, empty, loaded, merged;
} counts[] = {
    {Q(num_patches), 0, 0, 3, 2},           {Q(num_device_channels), 0, 0, 3, 3},
    {Q(has_device_data), 0, 0, 1, 1},       {Q(has_xyz_data), 0, 0, 1, 0},
    {Q(has_lab_data), 0, 0, 1, 1},          {Q(has_lch_data), 0, 0, 0, 0},
    {Q(has_spectral_data), 0, 0, 0, 0},     {Q(has_color_data), 0, 0, 1, 1},
    {Q(has_sample_id_data), 0, 0, 1, 1},    {Q(has_sample_loc_data), 0, 0, 1, 1},
    {Q(has_sample_name_data), 0, 0, 1, 1},  {Q(spectral_size), 0, 0, 0, 0},
    {Q(dev_is_cmyk), 0, 0, 0, NOT_ASKED},   {Q(dev_is_cmy), 0, 0, 1, NOT_ASKED},
    {Q(dev_is_rgb), 0, 0, 0, NOT_ASKED},    {Q(get_parse_mode), 0, 0, 0, NOT_ASKED},
    {Q(num_indices), 0, 0, 2, NOT_ASKED},   {Q(get_paperwhite_index), -1, -1, 0, NOT_ASKED},
    {Q(num_keywords), -1, 0, 1, NOT_ASKED},
};

static const struct {
  const char* name;
  double (*ask)(void*);
} measures[] = {{Q(spectral_start)}, {Q(spectral_end)}, {Q(spectral_step)}};

/* The file tells none of this. */
static const struct {
  const char* name;
  const char* (*ask)(void*);
} texts[] = {
    {Q(copyright)},
    {Q(device_manufacturer)},
    {Q(device_model)},
    {Q(device_serial_number)},
    {Q(device_geometry)},
    {Q(device_filter)},
    {Q(device_polarization)},
    {Q(device_measurement_source)},
    {Q(density_status)},
    {Q(illuminant)},
    {Q(observer)},
    {Q(sample_backing)},
    {Q(sample_colorant)},
    {Q(sample_manufacturer)},
    {Q(sample_material)},
    {Q(sample_print_conditions)},
    {Q(sample_production_date)},
    {Q(sample_serial_number)},
    {Q(sample_target_type)},
};

/* By position: what there is at position 0, and what stands for nothing. */
static const struct {
  const char* name;
  const char* (*ask)(void*, int);
  const char *first, *nothing;
  int is_for_merged, counts_negative_as_0;
} texts_at[] = {
    {Q(get_id_from_patch), "1", "", 1, 0},
    {Q(get_loc_from_patch), "A1", "", 1, 0},
    {Q(get_name_from_patch), "paper", "", 1, 0},
    {Q(get_name_from_index), "paper", "", 0, 0},
    {Q(get_device_channel_name), "Cyan", NULL, 0, 0},
    {Q(get_keyword), "OWN", NULL, 0, 1},
    {Q(get_value), "value", NULL, 0, 1},
};

/* What merging makes of the values: XYZ is not averaged. */
enum { HANDLE_ONLY, KEEPS_VALUES, LOSES_VALUES };

static const struct {
  const char* name;
  void (*fill)(void*, int, double*);
  double first[3];
  int merged;
} fills[] = {
    {Q(get_dev_from_patch), {0, 0, 0}, KEEPS_VALUES},
    {Q(get_xyz_from_patch), {80, 81, 82}, LOSES_VALUES},
    {Q(get_lab_from_patch), {90, 1, 2}, KEEPS_VALUES},
    {Q(get_dev_from_index), {0, 0, 0}, HANDLE_ONLY},
    {Q(get_lab_from_index), {90, 1, 2}, HANDLE_ONLY},
};

static const struct {
  const char* name;
  const double* (*ask)(void*, int);
  int is_for_merged;
} spectra[] = {{Q(get_spectrum_from_patch), 1}, {Q(get_spectrum_from_index), 0}};

static const struct {
  const char* name;
  int (*ask)(void*, int);
  int null, nothing, first;
} channel_counts[] = {
    {Q(num_distinct_dev_values), 0, 0, 2},
    {Q(num_wedge_steps), -1, 0, 1},
    {Q(get_solid_index), -1, -1, 1},
};

static const struct {
  const char* name;
  int (*ask)(void*, int, int);
  int null, nothing, first;
} channel_counts_at[] = {
    {Q(get_distinct_dev_value_count), 0, 0, 2},
    {Q(get_wedge_index), -1, 0, 1},
};

#define COUNT(table) (sizeof(table) / sizeof(table)[0])

/* All are beyond the end, or before the start, of every list of the file. */
static const int bad_positions[] = {-1, 3, INT_MAX, INT_MIN};

static void ask_without_position(void* handle, int state) {
  size_t i;
  for (i = 0; i < COUNT(counts); ++i) {
    const int expected = state == NULL_HANDLE ? counts[i].null
                         : state == LOADED    ? counts[i].loaded
                         : state == MERGED    ? counts[i].merged
                                              : counts[i].empty;
    if (counts[i].merged == NOT_ASKED && !is_handle(state)) continue;
    check(counts[i].ask(handle) == expected, counts[i].name, state, 0);
  }
  for (i = 0; i < COUNT(measures); ++i) {
    check(measures[i].ask(handle) == 0.0, measures[i].name, state, 0);
  }
  if (!is_handle(state)) return;
  for (i = 0; i < COUNT(texts); ++i) {
    check(texts[i].ask(handle) == NULL, texts[i].name, state, 0);
  }
}

static void ask_at(void* handle, int state, int position) {
  const int is_there = (state == LOADED || state == MERGED) && position == 0;
  size_t i;
  for (i = 0; i < COUNT(texts_at); ++i) {
    const int is_first =
        is_there || (state == LOADED && position < 0 && texts_at[i].counts_negative_as_0);
    if (!is_handle(state) && !texts_at[i].is_for_merged) continue;
    check(same_text(texts_at[i].ask(handle, position),
                    is_first ? texts_at[i].first : texts_at[i].nothing),
          texts_at[i].name, state, position);
  }
  for (i = 0; i < COUNT(fills); ++i) {
    double expected[4] = {-7, -7, -7, -7}, filled[4] = {-7, -7, -7, -7};
    if (!is_handle(state) && fills[i].merged == HANDLE_ONLY) continue;
    if (is_there && (state == LOADED || fills[i].merged == KEEPS_VALUES)) {
      memcpy(expected, fills[i].first, sizeof fills[i].first);
    }
    fills[i].fill(handle, position, NULL);
    fills[i].fill(handle, position, filled);
    check(memcmp(filled, expected, sizeof filled) == 0, fills[i].name, state, position);
  }
  for (i = 0; i < COUNT(spectra); ++i) {
    if (!is_handle(state) && !spectra[i].is_for_merged) continue;
    check(spectra[i].ask(handle, position) == NULL, spectra[i].name, state, position);
  }
}

static void ask_channel(void* handle, int state, int channel, int i) {
  const int is_channel = state == LOADED && channel == 0, is_there = is_channel && i == 0;
  size_t k;
  for (k = 0; k < COUNT(channel_counts); ++k) {
    const int expected = state == NULL_HANDLE ? channel_counts[k].null
                         : is_channel         ? channel_counts[k].first
                                              : channel_counts[k].nothing;
    check(channel_counts[k].ask(handle, channel) == expected, channel_counts[k].name, state,
          channel);
  }
  for (k = 0; k < COUNT(channel_counts_at); ++k) {
    const int expected = state == NULL_HANDLE ? channel_counts_at[k].null
                         : is_there           ? channel_counts_at[k].first
                                              : channel_counts_at[k].nothing;
    check(channel_counts_at[k].ask(handle, channel, i) == expected, channel_counts_at[k].name,
          state, i);
  }
  check(get_distinct_dev_value(handle, channel, i) == 0.0, "get_distinct_dev_value", state, i);
}

static void ask_statistics(void* handle, int state, int index) {
  DeStats stats = {-7, -7, -7};
  get_de_stats_from_index(handle, index, NULL);
  get_de_stats_from_index(handle, index, &stats);
  if (state == LOADED && index == 0) {
    check(stats.repeat_count == 2 && stats.de_mean == 0 && stats.de_max == 0,
          "get_de_stats_from_index", state, index);
  } else {
    check(stats.repeat_count == -7 && stats.de_mean == -7 && stats.de_max == -7,
          "get_de_stats_from_index", state, index);
  }
}

static void ask_keyword(void* handle, int state, const char* name) {
  const int is_there = state == LOADED && name != NULL && strcmp(name, "OWN") == 0;
  const char* const value = is_there ? "value" : NULL;
  size_t i;
  check(has_keyword(handle, name) == is_there, "has_keyword", state, 0);
  check(num_keyword_values(handle, name) == is_there, "num_keyword_values", state, 0);
  check(same_text(get_value_of_keyword(handle, name), value), "get_value_of_keyword", state, 0);
  check(same_text(get_ith_value_of_keyword(handle, 0, name), value), "get_ith_value_of_keyword",
        state, 0);
  for (i = 0; i < COUNT(bad_positions); ++i) {
    check(get_ith_value_of_keyword(handle, bad_positions[i], name) == NULL,
          "get_ith_value_of_keyword", state, bad_positions[i]);
  }
}

static void ask_everything(void* handle, int state) {
  size_t i, k;
  ask_without_position(handle, state);
  ask_at(handle, state, 0);
  for (i = 0; i < COUNT(bad_positions); ++i) ask_at(handle, state, bad_positions[i]);
  if (!is_handle(state)) return;
  ask_channel(handle, state, 0, 0);
  ask_statistics(handle, state, 0);
  for (i = 0; i < COUNT(bad_positions); ++i) {
    ask_statistics(handle, state, bad_positions[i]);
    ask_channel(handle, state, 0, bad_positions[i]);
    ask_channel(handle, state, bad_positions[i], 0);
    for (k = 0; k < COUNT(bad_positions); ++k) {
      ask_channel(handle, state, bad_positions[i], bad_positions[k]);
    }
  }
  ask_keyword(handle, state, NULL);
  ask_keyword(handle, state, "");
  ask_keyword(handle, state, "OWN");
}

static void load_nothing(void* handle, int state) {
  const char* told;
  check(parse_file(handle, NULL) == 0, "parse_file", state, 0);
  told = parse_messages(handle);
  check(same_text(told, state == NULL_HANDLE ? NULL : "Failed to open file ''\n"), "parse_messages",
        state, 0);
  check(parse_file(handle, "") == 0, "parse_file", state, 1);
  check(parse_mem(handle, sizeof text - 1, NULL, NULL) == 0, "parse_mem", state, 0);
  check(parse_mem(handle, (size_t)-1, NULL, "name") == 0, "parse_mem", state, 1);
  check(parse_mem(handle, 0, text, NULL) == 0, "parse_mem", state, 2);
  told = parse_messages(handle);
  check(same_text(told, state == NULL_HANDLE ? NULL : "File is empty\n"), "parse_messages", state,
        1);
}

static void set_modes(void* handle, int state) {
  static const int modes[] = {-1, 2, INT_MAX, INT_MIN};
  size_t i;
  for (i = 0; i < COUNT(modes); ++i) set_parse_mode(handle, modes[i]);
  check(get_parse_mode(handle) == 0, "set_parse_mode", state, 0);
}

static void ask_spectra(void) {
  void* handle = init_parser();
  const double* spectrum;
  check(parse_mem(handle, sizeof spectral_text - 1, spectral_text, NULL) == 1, "parse_mem", FRESH,
        0);
  check(spectral_start(handle) == 400, "spectral_start", LOADED, 0);
  check(spectral_end(handle) == 420, "spectral_end", LOADED, 0);
  check(spectral_step(handle) == 10, "spectral_step", LOADED, 0);
  spectrum = get_spectrum_from_patch(handle, 0);
  check(spectrum != NULL && spectrum[2] == 3, "get_spectrum_from_patch", LOADED, 0);
  spectrum = get_spectrum_from_index(handle, 0);
  check(spectrum != NULL && spectrum[2] == 3, "get_spectrum_from_index", LOADED, 0);
  check(get_spectrum_from_patch(handle, -1) == NULL, "get_spectrum_from_patch", LOADED, -1);
  check(get_spectrum_from_patch(handle, 1) == NULL, "get_spectrum_from_patch", LOADED, 1);
  check(get_spectrum_from_index(handle, INT_MIN) == NULL, "get_spectrum_from_index", LOADED,
        INT_MIN);
  check(get_spectrum_from_index(handle, 1) == NULL, "get_spectrum_from_index", LOADED, 1);
  cleanup_parser(&handle);
}

static void convert(void) {
  double color[3] = {0, 0, 0};
  static const double white[3] = {100, 0, 0};
  lab_to_srgb(NULL, NULL);
  lab_to_srgb(white, NULL);
  lab_to_srgb(NULL, color);
  check(color[0] == 0 && color[1] == 0 && color[2] == 0, "lab_to_srgb", NULL_HANDLE, 0);
  lab_to_srgb(white, color);
  check(color[1] > 250 && color[1] <= 255, "lab_to_srgb", NULL_HANDLE, 1);
}

static void tell_version(void) {
  char version[64];
  snprintf(version, sizeof version, "%d.%d.%d", parser_version_major(), parser_version_minor(),
           parser_version_bugfix());
  check(same_text(version, parser_version()), "parser_version", NULL_HANDLE, 0);
}

int main(void) {
  void* handle = NULL;
  ask_everything(NULL, NULL_HANDLE);
  load_nothing(NULL, NULL_HANDLE);
  set_modes(NULL, NULL_HANDLE);
  check(pass_unique_data(NULL) == NULL, "pass_unique_data", NULL_HANDLE, 0);
  cleanup_parser(NULL);
  cleanup_parser(&handle);

  handle = init_parser();
  check(handle != NULL, "init_parser", NULL_HANDLE, 0);
  check(same_text(parse_messages(handle), ""), "parse_messages", FRESH, 0);
  ask_everything(handle, FRESH);
  ask_everything(pass_unique_data(handle), NOT_MERGED);
  set_modes(handle, FRESH);
  load_nothing(handle, FAILED);
  ask_everything(handle, FAILED);
  ask_everything(pass_unique_data(handle), NOT_MERGED);
  check(parse_mem(handle, sizeof text - 1, text, NULL) == 1, "parse_mem", FAILED, 3);
  check(same_text(parse_messages(handle), ""), "parse_messages", LOADED, 0);
  ask_everything(handle, LOADED);
  ask_everything(pass_unique_data(handle), MERGED);
  cleanup_parser(&handle);
  check(handle == NULL, "cleanup_parser", LOADED, 0);
  cleanup_parser(&handle);

  ask_spectra();
  convert();
  tell_version();
  return faults == 0 ? 0 : 1;
}
