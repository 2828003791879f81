#include "common/model/text_sheet.h"

#include "common/model/template.h"

// Appends a clone of each item that the source has now; the source may be the destination.
template <auto clone, typename T>
static void append_clones(z_list<T> &destination, const z_list<T> &source)
{
    const T *last = source.get_last();
    for (T *item : source) {
        destination.add_last(clone(item));
        if (item == last)
            return;
    }
}

// Whatever happens to a row or field is noted in its block.
template <typename T>
static void note_change(T *element)
{
    if constexpr (requires { element->change; })
        element->change = ++z_text_sheet_change_count;
    else if (element->container != nullptr)
        note_change(element->container);
}

// For an element that has just been put beside another.
template <typename T>
static void join(T *element, const T *neighbour)
{
    if constexpr (requires { element->container; })
        element->container = neighbour->container;
    note_change(element);
}

// Before an element goes.
template <typename T>
static void leave(T *element)
{
    note_change(element);
    if constexpr (requires { element->container; })
        element->container = nullptr;
}

template <typename T, typename Container>
static void enter(T *element, Container *container)
{
    if constexpr (requires { element->container; })
        element->container = container;
    note_change(element);
}

template <typename T>
static void set_text(T *element, z_langstr_ptr &target, z_langstr_ptr text)
{
    target = std::move(text);
    element->measure = z_text_sheet_measure{};
    note_change(element);
}

// What every kind of element can do inside its list.
#define Z_DEFINE_ITEM_OPERATIONS(kind)                                                                       \
    z_text_sheet_##kind##_ptr z_text_sheet_##kind##_remove(z_text_sheet_##kind *kind)                        \
    {                                                                                                        \
        leave(kind);                                                                                         \
        z_link_remove(kind);                                                                                 \
        return z_text_sheet_##kind##_ptr(kind);                                                              \
    }                                                                                                        \
    void z_text_sheet_##kind##_destroy(z_text_sheet_##kind *kind)                                            \
    {                                                                                                        \
        if (kind != nullptr)                                                                                 \
            (void)z_text_sheet_##kind##_remove(kind).release();                                              \
        delete kind;                                                                                         \
    }                                                                                                        \
    int z_text_sheet_##kind##_get_index(const z_text_sheet_##kind *kind)                                     \
    {                                                                                                        \
        return z_link_get_index(kind);                                                                       \
    }                                                                                                        \
    bool z_text_sheet_##kind##_move_up(z_text_sheet_##kind *kind)                                            \
    {                                                                                                        \
        note_change(kind);                                                                                   \
        return z_link_move_up(kind);                                                                         \
    }                                                                                                        \
    bool z_text_sheet_##kind##_move_down(z_text_sheet_##kind *kind)                                          \
    {                                                                                                        \
        note_change(kind);                                                                                   \
        return z_link_move_down(kind);                                                                       \
    }

// What the kinds with a header and children share besides.
#define Z_DEFINE_CONTAINER_OPERATIONS(kind, child, children)                                                 \
    z_text_sheet_##kind##_ptr z_text_sheet_##kind##_new(const z_langstr *header)                             \
    {                                                                                                        \
        z_text_sheet_##kind##_ptr kind(new z_text_sheet_##kind);                                             \
        kind->header = z_langstr_clone(header);                                                              \
        return kind;                                                                                         \
    }                                                                                                        \
    z_text_sheet_##kind##_ptr z_text_sheet_##kind##_clone(const z_text_sheet_##kind *kind)                   \
    {                                                                                                        \
        z_text_sheet_##kind##_ptr copy = z_text_sheet_##kind##_new(kind->header.get());                      \
        for (const z_text_sheet_##child *item : kind->children)                                              \
            z_text_sheet_##kind##_add_##child(copy.get(), z_text_sheet_##child##_clone(item));               \
        return copy;                                                                                         \
    }                                                                                                        \
    void z_text_sheet_##kind##_set_header(z_text_sheet_##kind *kind, z_langstr_ptr header)                   \
    {                                                                                                        \
        set_text(kind, kind->header, std::move(header));                                                     \
    }                                                                                                        \
    void z_text_sheet_##kind##_add_after(z_text_sheet_##kind##_ptr kind, z_text_sheet_##kind *reference)     \
    {                                                                                                        \
        z_link_insert_after(kind.get(), reference);                                                          \
        join(kind.release(), reference);                                                                     \
    }                                                                                                        \
    void z_text_sheet_##kind##_add_before(z_text_sheet_##kind##_ptr kind, z_text_sheet_##kind *reference)    \
    {                                                                                                        \
        z_link_insert_before(kind.get(), reference);                                                         \
        join(kind.release(), reference);                                                                     \
    }                                                                                                        \
    void z_text_sheet_##kind##_add_##child(z_text_sheet_##kind *kind, z_text_sheet_##child##_ptr child)      \
    {                                                                                                        \
        enter(kind->children.add_last(std::move(child)), kind);                                              \
    }

Z_DEFINE_ITEM_OPERATIONS(field)
Z_DEFINE_ITEM_OPERATIONS(row)
Z_DEFINE_ITEM_OPERATIONS(block)
Z_DEFINE_ITEM_OPERATIONS(segment)

z_text_sheet_field_ptr z_text_sheet_field_new(uint32_t kind)
{
    z_text_sheet_field_ptr field(new z_text_sheet_field);
    field->kind = kind;
    return field;
}

z_text_sheet_field_ptr z_text_sheet_field_clone(const z_text_sheet_field *field)
{
    z_text_sheet_field_ptr copy = z_text_sheet_field_new(field->kind);
    copy->text = z_langstr_clone(field->text.get());
    copy->selected = field->selected;
    return copy;
}

void z_text_sheet_field_set_text(z_text_sheet_field *field, z_langstr_ptr text)
{
    set_text(field, field->text, std::move(text));
}

bool z_text_sheet_field_is_linked(const z_text_sheet_field *field)
{
    return z_link_is_linked(field);
}

Z_DEFINE_CONTAINER_OPERATIONS(row, field, fields)
Z_DEFINE_CONTAINER_OPERATIONS(block, row, rows)
Z_DEFINE_CONTAINER_OPERATIONS(segment, block, blocks)

bool z_text_sheet_segment_has_contents(const z_text_sheet_segment *segment)
{
    return !segment->blocks.is_empty();
}

void z_text_sheet_segment_copy_contents(z_text_sheet_segment *destination, const z_text_sheet_segment *source)
{
    append_clones<z_text_sheet_block_clone>(destination->blocks, source->blocks);
}

z_text_sheet_ptr z_text_sheet_new()
{
    return z_text_sheet_ptr(new z_text_sheet);
}

void z_text_sheet_destroy(z_text_sheet *sheet)
{
    delete sheet;
}

bool z_text_sheet_has_segments(const z_text_sheet *sheet)
{
    return !sheet->segments.is_empty();
}

void z_text_sheet_add_segment(z_text_sheet *sheet, z_text_sheet_segment_ptr segment)
{
    sheet->segments.add_last(std::move(segment));
}

void z_text_sheet_copy_segments(z_text_sheet *destination, const z_text_sheet *source)
{
    append_clones<z_text_sheet_segment_clone>(destination->segments, source->segments);
}

void z_util_add_segments_from_template(z_text_sheet *sheet, const z_template_report_type *report_type)
{
    append_clones<z_text_sheet_segment_clone>(sheet->segments, report_type->segments);
}
