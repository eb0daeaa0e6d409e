"""What the functions of the native libraries take and return."""

from __future__ import annotations

import ctypes
from typing import Any, Tuple

INT, DOUBLE, TEXT = ctypes.c_int, ctypes.c_double, ctypes.c_char_p
POINTER = ctypes.c_void_p  # handles and, as plain addresses, arrays of numbers


class DeStats(ctypes.Structure):
    _fields_ = (
        ("repeat_count", ctypes.c_int32),
        ("de_mean", ctypes.c_double),
        ("de_max", ctypes.c_double),
    )
    repeat_count: int
    de_mean: float
    de_max: float


class CompareOptions(ctypes.Structure):
    _fields_ = (
        ("match", INT),
        ("formula", INT),
        ("median", INT),
        ("cmc_lightness", DOUBLE),
        ("cmc_chroma", DOUBLE),
    )


class ConvertOptions(ctypes.Structure):
    _fields_ = (
        ("select", TEXT),
        ("lab_from", TEXT),
        ("grid", TEXT),
        ("merged", INT),
        ("percent", INT),
        ("keep_unknown", INT),
        ("digits", INT),
        ("decimal_comma", INT),
        ("bare", INT),
        ("cxf_pairs", INT),
    )


# Functions by result and arguments.
Signatures = Tuple[Tuple[Any, Tuple[Any, ...], str], ...]
SIGNATURES: Signatures = (
    (POINTER, (), "init_parser"),
    (None, (ctypes.POINTER(POINTER),), "cleanup_parser"),
    (INT, (POINTER, TEXT), "parse_file has_keyword num_keyword_values"),
    (INT, (POINTER, ctypes.c_size_t, TEXT, TEXT), "parse_mem"),
    (None, (POINTER, INT), "set_parse_mode"),
    (POINTER, (POINTER,), "pass_unique_data"),
    (TEXT, (), "parser_version"),
    (INT, (), "parser_version_major parser_version_minor parser_version_bugfix"),
    (
        INT,
        (POINTER,),
        "get_parse_mode num_patches num_device_channels num_indices num_keywords"
        " get_paperwhite_index dev_is_cmyk dev_is_cmy dev_is_rgb spectral_size"
        " has_device_data has_xyz_data has_lab_data has_lch_data has_spectral_data has_color_data"
        " has_sample_id_data has_sample_loc_data has_sample_name_data",
    ),
    (DOUBLE, (POINTER,), "spectral_start spectral_end spectral_step"),
    (
        TEXT,
        (POINTER,),
        "parse_messages copyright density_status illuminant observer"
        " device_manufacturer device_model device_serial_number device_geometry device_filter"
        " device_polarization device_measurement_source"
        " sample_backing sample_colorant sample_manufacturer sample_material"
        " sample_print_conditions sample_production_date sample_serial_number sample_target_type",
    ),
    (
        TEXT,
        (POINTER, INT),
        "get_id_from_patch get_loc_from_patch get_name_from_patch get_name_from_index"
        " get_device_channel_name get_keyword get_value",
    ),
    (
        None,
        (POINTER, INT, POINTER),
        "get_dev_from_patch get_xyz_from_patch get_lab_from_patch"
        " get_dev_from_index get_lab_from_index",
    ),
    (POINTER, (POINTER, INT), "get_spectrum_from_patch get_spectrum_from_index"),
    (None, (POINTER, INT, ctypes.POINTER(DeStats)), "get_de_stats_from_index"),
    (INT, (POINTER, INT), "num_distinct_dev_values num_wedge_steps get_solid_index"),
    (DOUBLE, (POINTER, INT, INT), "get_distinct_dev_value"),
    (INT, (POINTER, INT, INT), "get_distinct_dev_value_count get_wedge_index"),
    (TEXT, (POINTER, TEXT), "get_value_of_keyword"),
    (TEXT, (POINTER, INT, TEXT), "get_ith_value_of_keyword"),
    (None, (POINTER, POINTER), "lab_to_srgb"),
)

_AT_CHART, _AT_FINDING = (POINTER, INT), (POINTER, INT, INT)
KIT_SIGNATURES: Signatures = (
    (POINTER, (TEXT, INT), "mk_open_file"),
    (POINTER, (ctypes.c_size_t, TEXT, TEXT, INT), "mk_open_block"),
    (None, (ctypes.POINTER(POINTER),), "mk_close"),
    (TEXT, (), "mk_version"),
    (INT, (POINTER,), "mk_num_charts"),
    (TEXT, _AT_CHART, "mk_chart_name"),
    (POINTER, _AT_CHART, "mk_chart_handle"),
    # An address, because the text may hold zero bytes.
    (POINTER, (POINTER, INT, ctypes.POINTER(ctypes.c_size_t)), "mk_plain_text"),
    (INT, _AT_CHART, "mk_num_findings mk_num_more_findings"),
    (TEXT, _AT_FINDING, "mk_finding_code mk_finding_sentence"),
    (INT, _AT_FINDING, "mk_finding_severity mk_finding_line"),
    (TEXT, (POINTER,), "mk_json mk_html"),
    (TEXT, (ctypes.POINTER(POINTER), INT), "mk_html_of"),
    (POINTER, (POINTER, INT, POINTER, INT, ctypes.POINTER(CompareOptions)), "mk_compare"),
    (None, (ctypes.POINTER(POINTER),), "mk_close_comparison"),
    (TEXT, (POINTER,), "mk_comparison_refusal mk_comparison_json mk_comparison_html"),
    (INT, (POINTER,), "mk_num_compared"),
    (None, (POINTER, POINTER, POINTER), "mk_compared_patches"),
    (INT, (POINTER, TEXT, POINTER), "mk_compared_measure mk_figure"),
    (POINTER, (POINTER, INT, TEXT, ctypes.POINTER(ConvertOptions)), "mk_convert"),
    (None, (ctypes.POINTER(POINTER),), "mk_close_conversion"),
    (TEXT, (POINTER,), "mk_conversion_refusal"),
    # An address, because the text may hold zero bytes.
    (POINTER, (POINTER, ctypes.POINTER(ctypes.c_size_t)), "mk_converted_text"),
    (INT, (POINTER,), "mk_num_left_behind"),
    (TEXT, (POINTER, INT), "mk_left_behind"),
)
