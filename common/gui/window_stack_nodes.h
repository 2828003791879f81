#pragma once

// The nodes of a window stack and what follows from their order: which window takes input, which cursor each
// shows.

#include "common/base/list.h"
#include "common/gui/busy_window.h"
#include "common/gui/focus_watch.h"
#include "common/gui/window_stack.h"

enum class z_window_stack_node_kind { window, native, busy };

struct z_window_stack_node : z_link {
    explicit z_window_stack_node(z_window_stack_node_kind new_kind) : kind(new_kind) {}
    ~z_window_stack_node()
    {
        g_clear_weak_pointer(&focus_widget);
    }

    z_window_stack_node_kind kind;
    // Of a window node: the window, whether it is sensitive, and while it is not, which widget had the focus.
    GtkWidget *window = nullptr;
    bool is_enabled = true;
    GtkWidget *focus_widget = nullptr;
    z_mouse_cursor_operation cursor_operation = nullptr;
    gpointer cursor_data = nullptr;
    // Of a busy node.
    std::unique_ptr<z_busy> busy;
};

struct z_window_stack {
    z_list<z_window_stack_node> nodes;
    z_focus_watch focus_watch;
    z_focus_return_operation focus_operation = nullptr;
    gpointer focus_data = nullptr;
};

// What a node shows of ours, or null.
[[nodiscard]] GtkWidget *z_window_stack_get_shown_window(const z_window_stack_node *node);
// Null if there is none.
[[nodiscard]] GtkWidget *z_window_stack_get_uppermost_window(const z_window_stack *stack);

// After either of these comes an update. Removing a window's node takes the stack's handlers off the window.
z_window_stack_node *z_window_stack_append_node(z_window_stack *stack, z_window_stack_node_kind kind);
void z_window_stack_remove_node(z_window_stack *stack, z_window_stack_node *node);

// Sets sensitivity, visibility and cursors of all windows by the order of the nodes.
void z_window_stack_update(z_window_stack *stack);
// The cursors alone, for a window that could not take its own before it was there.
void z_window_stack_update_cursors(z_window_stack *stack);
