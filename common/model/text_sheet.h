#pragma once

// Text sheets: the form that a report type defines, an ordered tree.
//
//     segment   a titled section       -> blocks
//     block     a titled group         -> rows
//     row       one titled line        -> fields
//     field     one input: a text field or a checkbox
//
// Every container owns its children (see list.h) and every header is a multilingual string that may be empty.
// Elements are made and cloned outside any list; an add operation gives them to a container. `_remove` takes
// an element out and hands it to the caller; `_destroy` also frees it with everything below it, null allowed.
// The move operations return false at the edge of a list. Indices count from zero.
//
// The hit rectangle and the kept measures are run-time state of whatever draws the sheet: a clone does not
// have them and no file stores them. A header or text is changed only through its setter, which drops the
// measure that was taken from it; setters and list operations note the change (see
// z_text_sheet_change_count).

#include <cstdint>

#include "common/base/list.h"
#include "common/base/rectangle.h"
#include "common/model/langstr.h"

struct z_text_sheet_field;
struct z_text_sheet_row;
struct z_text_sheet_block;
struct z_text_sheet_segment;
struct z_text_sheet;
struct z_template_report_type;

void z_text_sheet_field_destroy(z_text_sheet_field *field);
void z_text_sheet_row_destroy(z_text_sheet_row *row);
void z_text_sheet_block_destroy(z_text_sheet_block *block);
void z_text_sheet_segment_destroy(z_text_sheet_segment *segment);
void z_text_sheet_destroy(z_text_sheet *sheet);

using z_text_sheet_field_ptr = z_ptr<z_text_sheet_field, z_text_sheet_field_destroy>;
using z_text_sheet_row_ptr = z_ptr<z_text_sheet_row, z_text_sheet_row_destroy>;
using z_text_sheet_block_ptr = z_ptr<z_text_sheet_block, z_text_sheet_block_destroy>;
using z_text_sheet_segment_ptr = z_ptr<z_text_sheet_segment, z_text_sheet_segment_destroy>;
using z_text_sheet_ptr = z_ptr<z_text_sheet, z_text_sheet_destroy>;

// The sizes of one text as it is shown, in whole pixels, rounded up; -1 where it has not been laid out so.
// They count only while `generation` is the renderer's (see gfx_text.h): another font, scale or language
// begins a new one.
struct z_text_sheet_measure {
    uint32_t generation = 0;
    int32_t natural_width = -1;
    int32_t natural_height = -1;
    int32_t wrap_width = -1;
    int32_t width = -1;
    int32_t height = -1;
};

// Counts the changes to all text sheets. A segment has the count of its header's last change, a block that of
// the last change to anything in it, so that what was kept of either can be told to hold still. No element
// ever has the count of an earlier one at its address.
inline uint64_t z_text_sheet_change_count = 0;

// The kinds of field, as numbers so that an invalid one can be told from the two.
inline constexpr uint32_t Z_TEXT_SHEET_TEXT_FIELD = 0;
inline constexpr uint32_t Z_TEXT_SHEET_CHECKBOX = 1;

struct z_text_sheet_field : z_link {
    z_text_sheet_row *container = nullptr;
    uint32_t kind = Z_TEXT_SHEET_TEXT_FIELD;
    z_langstr_ptr text; // A text field's contents (kept in basic data only), or a checkbox's label.
    bool selected = false;
    z_rectangle rect;
    z_text_sheet_measure measure;
};

struct z_text_sheet_row : z_link {
    z_text_sheet_block *container = nullptr;
    z_langstr_ptr header;
    z_list<z_text_sheet_field> fields;
    z_rectangle rect;
    z_text_sheet_measure measure;
};

struct z_text_sheet_block : z_link {
    z_langstr_ptr header;
    z_list<z_text_sheet_row> rows;
    z_rectangle rect;
    z_text_sheet_measure measure;
    uint64_t change = ++z_text_sheet_change_count;
};

struct z_text_sheet_segment : z_link {
    z_langstr_ptr header;
    z_list<z_text_sheet_block> blocks;
    z_rectangle rect;
    z_text_sheet_measure measure;
    uint64_t change = ++z_text_sheet_change_count;
};

// A whole form held by itself. The details segment has no header.
struct z_text_sheet {
    z_text_sheet_segment details;
    z_list<z_text_sheet_segment> segments;
};

[[nodiscard]] z_text_sheet_field_ptr z_text_sheet_field_new(uint32_t kind);
[[nodiscard]] z_text_sheet_field_ptr z_text_sheet_field_clone(const z_text_sheet_field *field);
[[nodiscard]] z_text_sheet_field_ptr z_text_sheet_field_remove(z_text_sheet_field *field);
void z_text_sheet_field_set_text(z_text_sheet_field *field, z_langstr_ptr text);
[[nodiscard]] bool z_text_sheet_field_is_linked(const z_text_sheet_field *field);
[[nodiscard]] int z_text_sheet_field_get_index(const z_text_sheet_field *field);
bool z_text_sheet_field_move_up(z_text_sheet_field *field);
bool z_text_sheet_field_move_down(z_text_sheet_field *field);

// A new element clones the header; null gives an empty one.
[[nodiscard]] z_text_sheet_row_ptr z_text_sheet_row_new(const z_langstr *header);
[[nodiscard]] z_text_sheet_row_ptr z_text_sheet_row_clone(const z_text_sheet_row *row);
[[nodiscard]] z_text_sheet_row_ptr z_text_sheet_row_remove(z_text_sheet_row *row);
void z_text_sheet_row_set_header(z_text_sheet_row *row, z_langstr_ptr header);
void z_text_sheet_row_add_after(z_text_sheet_row_ptr row, z_text_sheet_row *reference);
void z_text_sheet_row_add_before(z_text_sheet_row_ptr row, z_text_sheet_row *reference);
void z_text_sheet_row_add_field(z_text_sheet_row *row, z_text_sheet_field_ptr field);
[[nodiscard]] int z_text_sheet_row_get_index(const z_text_sheet_row *row);
bool z_text_sheet_row_move_up(z_text_sheet_row *row);
bool z_text_sheet_row_move_down(z_text_sheet_row *row);

[[nodiscard]] z_text_sheet_block_ptr z_text_sheet_block_new(const z_langstr *header);
[[nodiscard]] z_text_sheet_block_ptr z_text_sheet_block_clone(const z_text_sheet_block *block);
[[nodiscard]] z_text_sheet_block_ptr z_text_sheet_block_remove(z_text_sheet_block *block);
void z_text_sheet_block_set_header(z_text_sheet_block *block, z_langstr_ptr header);
void z_text_sheet_block_add_after(z_text_sheet_block_ptr block, z_text_sheet_block *reference);
void z_text_sheet_block_add_before(z_text_sheet_block_ptr block, z_text_sheet_block *reference);
void z_text_sheet_block_add_row(z_text_sheet_block *block, z_text_sheet_row_ptr row);
[[nodiscard]] int z_text_sheet_block_get_index(const z_text_sheet_block *block);
bool z_text_sheet_block_move_up(z_text_sheet_block *block);
bool z_text_sheet_block_move_down(z_text_sheet_block *block);

[[nodiscard]] z_text_sheet_segment_ptr z_text_sheet_segment_new(const z_langstr *header);
[[nodiscard]] z_text_sheet_segment_ptr z_text_sheet_segment_clone(const z_text_sheet_segment *segment);
[[nodiscard]] z_text_sheet_segment_ptr z_text_sheet_segment_remove(z_text_sheet_segment *segment);
void z_text_sheet_segment_set_header(z_text_sheet_segment *segment, z_langstr_ptr header);
void z_text_sheet_segment_add_after(z_text_sheet_segment_ptr segment, z_text_sheet_segment *reference);
void z_text_sheet_segment_add_before(z_text_sheet_segment_ptr segment, z_text_sheet_segment *reference);
void z_text_sheet_segment_add_block(z_text_sheet_segment *segment, z_text_sheet_block_ptr block);
[[nodiscard]] int z_text_sheet_segment_get_index(const z_text_sheet_segment *segment);
bool z_text_sheet_segment_move_up(z_text_sheet_segment *segment);
bool z_text_sheet_segment_move_down(z_text_sheet_segment *segment);

// Whether there is at least one block.
[[nodiscard]] bool z_text_sheet_segment_has_contents(const z_text_sheet_segment *segment);
// Appends a clone of every block that the source has when called; the source may be the destination.
void z_text_sheet_segment_copy_contents(z_text_sheet_segment *destination,
                                        const z_text_sheet_segment *source);

[[nodiscard]] z_text_sheet_ptr z_text_sheet_new();
[[nodiscard]] bool z_text_sheet_has_segments(const z_text_sheet *sheet);
void z_text_sheet_add_segment(z_text_sheet *sheet, z_text_sheet_segment_ptr segment);
// Appends a clone of every segment that the source has when called; the source may be the destination.
void z_text_sheet_copy_segments(z_text_sheet *destination, const z_text_sheet *source);
void z_util_add_segments_from_template(z_text_sheet *sheet, const z_template_report_type *report_type);
