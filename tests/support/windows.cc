#include "tests/support/windows.h"

#include <utility>

#include "common/gui/gtk_handles.h"

using z_widget_list_ptr = z_ptr<GList, g_list_free>;

static std::vector<GtkWidget *> to_vector(z_widget_list_ptr list)
{
    std::vector<GtkWidget *> widgets;
    for (const GList *item = list.get(); item != nullptr; item = item->next)
        widgets.push_back(static_cast<GtkWidget *>(item->data));
    return widgets;
}

static std::vector<GtkWidget *> get_toplevels()
{
    return to_vector(z_widget_list_ptr(gtk_window_list_toplevels()));
}

// Main loops.

static gboolean do_nothing(gpointer)
{
    return G_SOURCE_CONTINUE;
}

bool run_until(const std::function<bool()> &condition, int timeout_ms)
{
    const int64_t deadline_us = g_get_monotonic_time() + int64_t{timeout_ms} * 1000;
    const z_source wake(g_timeout_add(5, do_nothing, nullptr));
    while (!condition()) {
        if (g_get_monotonic_time() > deadline_us)
            return false;
        g_main_context_iteration(nullptr, TRUE);
    }
    return true;
}

void run_for(int milliseconds)
{
    (void)run_until([] { return false; }, milliseconds);
}

Steps::Steps(int step_timeout_ms) : step_timeout_us(int64_t{step_timeout_ms} * 1000)
{
    timer.reset(g_timeout_add(5, tick, this));
}

Steps::~Steps()
{
    EXPECT_EQ(steps.size(), next) << "steps that were never reached";
}

void Steps::add(std::function<bool()> step)
{
    if (steps.size() == next)
        deadline_us = g_get_monotonic_time() + step_timeout_us;
    steps.push_back(std::move(step));
}

void Steps::add_in(std::string title, std::function<bool(GtkWidget *)> step)
{
    add([title = std::move(title), step = std::move(step)] {
        GtkWidget *window = find_window(title);
        return window != nullptr && step(window);
    });
}

void Steps::add_in_menu(std::function<bool(GtkWidget *)> step)
{
    add([step = std::move(step)] {
        GtkWidget *menu = find_menu();
        return menu != nullptr && step(menu);
    });
}

// A step may itself run main loops, in which later steps take their turn.
gboolean Steps::tick(gpointer data)
{
    // A source is not dispatched again from within its own callback, so each round has a new one.
    auto *self = static_cast<Steps *>(data);
    self->timer.forget();
    self->timer.reset(g_timeout_add(5, tick, self));
    self->run();
    return G_SOURCE_REMOVE;
}

static void close_everything()
{
    while (GtkWidget *menu = find_menu())
        gtk_menu_shell_deactivate(GTK_MENU_SHELL(menu));
    std::vector<z_ref<GtkWidget>> held;
    for (GtkWidget *window : get_toplevels())
        held.push_back(z_share(window));
    for (const z_ref<GtkWidget> &window : held) {
        if (gtk_window_get_window_type(GTK_WINDOW(window.get())) == GTK_WINDOW_TOPLEVEL)
            gtk_widget_destroy(window.get());
    }
}

void Steps::run()
{
    if (next == steps.size()) {
        if (next > 0 && g_get_monotonic_time() > deadline_us)
            give_up("nothing ended the loop after the last step");
        return;
    }
    // While it runs the step counts as done, so that what it waits for can be done by the following ones.
    const size_t current = next++;
    const int64_t current_deadline_us = std::exchange(deadline_us, g_get_monotonic_time() + step_timeout_us);
    const std::function<bool()> step = steps[current];
    if (step())
        return;
    next = current;
    deadline_us = current_deadline_us;
    if (g_get_monotonic_time() <= deadline_us)
        return;
    give_up("step " + std::to_string(current) + " was not possible");
}

void Steps::give_up(const std::string &reason)
{
    ADD_FAILURE() << reason;
    steps.clear();
    next = 0;
    close_everything();
}

// Finding.

void show_and_wait_for_draw(GtkWidget *window)
{
    gtk_widget_show(window);
    gtk_test_widget_wait_for_draw(window);
}

GtkWidget *find_window(std::string_view title)
{
    for (GtkWidget *window : get_toplevels()) {
        const char *window_title = gtk_window_get_title(GTK_WINDOW(window));
        if (gtk_widget_get_mapped(window) && window_title != nullptr && title == window_title)
            return window;
    }
    return nullptr;
}

GtkWidget *find_menu()
{
    for (GtkWidget *window : get_toplevels()) {
        GtkWidget *child = gtk_bin_get_child(GTK_BIN(window));
        if (gtk_widget_get_mapped(window) && child != nullptr && GTK_IS_MENU(child))
            return child;
    }
    return nullptr;
}

GtkWidget *find_widget(GtkWidget *root, const std::function<bool(GtkWidget *)> &fits)
{
    if (fits(root))
        return root;
    if (!GTK_IS_CONTAINER(root))
        return nullptr;
    std::vector<GtkWidget *> children;
    gtk_container_forall(
        GTK_CONTAINER(root),
        +[](GtkWidget *child, gpointer data) {
            static_cast<std::vector<GtkWidget *> *>(data)->push_back(child);
        },
        &children);
    for (GtkWidget *child : children) {
        if (GtkWidget *found = find_widget(child, fits))
            return found;
    }
    return nullptr;
}

static bool has_label(GtkWidget *button, std::string_view label)
{
    return get_label_texts(button) == std::string(label) + "\n";
}

GtkWidget *find_button(GtkWidget *root, std::string_view label)
{
    return find_widget(
        root, [label](GtkWidget *widget) { return GTK_IS_BUTTON(widget) && has_label(widget, label); });
}

std::string get_label_texts(GtkWidget *root)
{
    std::string texts;
    (void)find_widget(root, [&texts](GtkWidget *widget) {
        if (GTK_IS_LABEL(widget))
            texts.append(gtk_label_get_text(GTK_LABEL(widget))).append("\n");
        return false;
    });
    return texts;
}

// Steps.

bool press_button(std::string_view window_title, std::string_view label)
{
    GtkWidget *window = find_window(window_title);
    GtkWidget *button = window == nullptr ? nullptr : find_button(window, label);
    if (button == nullptr || !gtk_widget_get_mapped(button) || !gtk_widget_is_sensitive(button))
        return false;
    gtk_button_clicked(GTK_BUTTON(button));
    return true;
}

bool answer(std::string_view title, const std::string &text, std::string_view button)
{
    GtkWidget *dialog = find_window(title);
    if (dialog == nullptr)
        return false;
    EXPECT_EQ(text + "\n", get_label_texts(dialog).substr(0, text.size() + 1));
    return press_button(title, button);
}

bool choose_menu_item(std::string_view label)
{
    GtkWidget *menu = find_menu();
    GtkWidget *item = menu == nullptr ? nullptr : find_widget(menu, [label](GtkWidget *widget) {
        return GTK_IS_MENU_ITEM(widget) && has_label(widget, label);
    });
    if (item == nullptr || !gtk_widget_is_sensitive(item))
        return false;
    gtk_menu_shell_activate_item(GTK_MENU_SHELL(menu), item, TRUE);
    return true;
}

bool close_menu()
{
    GtkWidget *menu = find_menu();
    if (menu == nullptr)
        return false;
    gtk_menu_shell_deactivate(GTK_MENU_SHELL(menu));
    return true;
}

bool close_window(std::string_view title)
{
    GtkWidget *window = find_window(title);
    if (window == nullptr)
        return false;
    send_close_request(window);
    return true;
}

// Events.

// From the user's pointer or keyboard, or from the window manager.
static z_gdk_event_ptr create_event(GdkEventType type, GdkWindow *window,
                                    GdkDevice *(*get_device)(GdkSeat *) = nullptr)
{
    z_gdk_event_ptr event(gdk_event_new(type));
    event->any.window = z_share(window).release();
    event->any.send_event = TRUE;
    if (get_device != nullptr) {
        GdkDevice *device = get_device(gdk_display_get_default_seat(gdk_window_get_display(window)));
        gdk_event_set_device(event.get(), device);
        gdk_event_set_source_device(event.get(), device);
    }
    return event;
}

void send_close_request(GtkWidget *window)
{
    gtk_main_do_event(create_event(GDK_DELETE, gtk_widget_get_window(window)).get());
}

// The innermost window of the widget under the point, which is made relative to that window.
static GdkWindow *descend(GtkWidget *widget, GdkWindow *window, int *x, int *y)
{
    for (const GList *item = gdk_window_peek_children(window); item != nullptr; item = item->next) {
        auto *child = static_cast<GdkWindow *>(item->data);
        gpointer owner = nullptr;
        gdk_window_get_user_data(child, &owner);
        if (owner == nullptr || !gdk_window_is_visible(child) ||
            !(owner == widget || gtk_widget_is_ancestor(GTK_WIDGET(owner), widget)))
            continue;
        int child_x = 0;
        int child_y = 0;
        gdk_window_get_position(child, &child_x, &child_y);
        if (*x < child_x || *y < child_y || *x >= child_x + gdk_window_get_width(child) ||
            *y >= child_y + gdk_window_get_height(child))
            continue;
        *x -= child_x;
        *y -= child_y;
        return descend(widget, child, x, y);
    }
    return window;
}

static void send_button_event(GdkEventType type, GdkWindow *window, int x, int y, guint button)
{
    const z_gdk_event_ptr event = create_event(type, window, gdk_seat_get_pointer);
    int root_x = 0;
    int root_y = 0;
    gdk_window_get_root_coords(window, x, y, &root_x, &root_y);
    event->button.x = x;
    event->button.y = y;
    event->button.x_root = root_x;
    event->button.y_root = root_y;
    event->button.button = button;
    event->button.time = GDK_CURRENT_TIME;
    gtk_main_do_event(event.get());
}

void click_at(GtkWidget *widget, int x, int y, guint button)
{
    if (!gtk_widget_get_has_window(widget)) {
        GtkAllocation allocation;
        gtk_widget_get_allocation(widget, &allocation);
        x += allocation.x;
        y += allocation.y;
    }
    GdkWindow *window = descend(widget, gtk_widget_get_window(widget), &x, &y);
    const z_ref<GdkWindow> held = z_share(window);
    send_button_event(GDK_BUTTON_PRESS, window, x, y, button);
    if (!gdk_window_is_destroyed(window))
        send_button_event(GDK_BUTTON_RELEASE, window, x, y, button);
}

void click(GtkWidget *widget)
{
    click_at(widget, gtk_widget_get_allocated_width(widget) / 2, gtk_widget_get_allocated_height(widget) / 2);
}

void press_key(GtkWidget *window, guint keyval, GdkModifierType state)
{
    GdkWindow *gdk_window = gtk_widget_get_window(window);
    z_ptr<GdkKeymapKey, g_free> keys;
    int count = 0;
    (void)gdk_keymap_get_entries_for_keyval(gdk_keymap_get_for_display(gdk_window_get_display(gdk_window)),
                                            keyval, z_out(keys), &count);
    for (GdkEventType type : {GDK_KEY_PRESS, GDK_KEY_RELEASE}) {
        // The press may have closed the window.
        if (gdk_window_is_destroyed(gdk_window) || !gdk_window_is_visible(gdk_window))
            return;
        const z_gdk_event_ptr event = create_event(type, gdk_window, gdk_seat_get_keyboard);
        event->key.keyval = keyval;
        event->key.hardware_keycode = count > 0 ? static_cast<guint16>(keys->keycode) : guint16{0};
        event->key.state = state;
        event->key.time = GDK_CURRENT_TIME;
        gtk_main_do_event(event.get());
    }
}

void send_focus_change(GtkWidget *window, bool has_focus)
{
    const z_gdk_event_ptr event =
        create_event(GDK_FOCUS_CHANGE, gtk_widget_get_window(window), gdk_seat_get_keyboard);
    event->focus_change.in = has_focus;
    gtk_main_do_event(event.get());
}

// Pictures.

Picture::Picture(GtkWidget *widget)
    : Canvas(gtk_widget_get_allocated_width(widget), gtk_widget_get_allocated_height(widget))
{
    gtk_widget_draw(widget, cr());
}

uint32_t Picture::get_rgb(int x, int y) const
{
    return pixel(x, y) & 0xffffffU;
}
