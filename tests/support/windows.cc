#include "tests/support/windows.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "common/gui/gtk_handles.h"

// Main loops.

bool run_until(const std::function<bool()> &condition, int timeout_ms)
{
    const int64_t deadline_us = g_get_monotonic_time() + int64_t{timeout_ms} * 1000;
    const z_source wake(g_timeout_add(
        5, +[](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr));
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

Steps::Steps()
{
    wait_for_turn();
}

Steps::~Steps()
{
    EXPECT_EQ(steps.size(), next) << "steps that were never reached";
}

void Steps::add(std::function<bool()> step)
{
    if (steps.size() == next)
        last_done_us = g_get_monotonic_time();
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

// A source is not dispatched again from within its own callback, so each turn has a new one.
void Steps::wait_for_turn()
{
    timer.forget();
    const auto take_turn = +[](gpointer data) -> gboolean {
        auto *self = static_cast<Steps *>(data);
        self->wait_for_turn();
        self->take_turn();
        return G_SOURCE_REMOVE;
    };
    timer.reset(g_timeout_add_full(G_PRIORITY_LOW, 5, take_turn, this, nullptr));
}

void Steps::take_turn()
{
    const size_t current = next;
    if (current < steps.size()) {
        // While it runs the step counts as done, so that what it waits for can be done by the following ones.
        ++next;
        const std::function<bool()> step = steps[current];
        if (step()) {
            last_done_us = g_get_monotonic_time();
            return;
        }
        next = current;
    }
    if (steps.empty() || g_get_monotonic_time() < last_done_us + 10 * G_USEC_PER_SEC)
        return;
    const testing::TestInfo *test = testing::UnitTest::GetInstance()->current_test_info();
    std::fprintf(stderr, "%s.%s: step %zu cannot be done, or nothing ends its loop.\n",
                 test->test_suite_name(), test->name(), current);
    std::_Exit(1);
}

// Finding.

void show_and_wait_for_draw(GtkWidget *window)
{
    gtk_widget_show(window);
    gtk_test_widget_wait_for_draw(window);
}

GtkWidget *find_window(std::string_view title)
{
    const z_ptr<GList, g_list_free> windows(gtk_window_list_toplevels());
    for (const GList *item = windows.get(); item != nullptr; item = item->next) {
        auto *window = static_cast<GtkWidget *>(item->data);
        const char *window_title = gtk_window_get_title(GTK_WINDOW(window));
        if (gtk_widget_get_mapped(window) && window_title != nullptr && title == window_title)
            return window;
    }
    return nullptr;
}

GtkWidget *find_menu()
{
    GtkWidget *grabbing = gtk_grab_get_current();
    return grabbing != nullptr && GTK_IS_MENU(grabbing) ? grabbing : nullptr;
}

GtkWidget *find_widget(GtkWidget *root, const std::function<bool(GtkWidget *)> &fits)
{
    if (fits(root))
        return root;
    if (!GTK_IS_CONTAINER(root))
        return nullptr;
    std::vector<GtkWidget *> children;
    const auto note = +[](GtkWidget *child, gpointer data) {
        static_cast<std::vector<GtkWidget *> *>(data)->push_back(child);
    };
    gtk_container_forall(GTK_CONTAINER(root), note, &children);
    for (GtkWidget *child : children) {
        if (GtkWidget *found = find_widget(child, fits))
            return found;
    }
    return nullptr;
}

static GtkWidget *find_labelled(GtkWidget *root, GType type, std::string_view label)
{
    return find_widget(root, [=](GtkWidget *widget) {
        return g_type_is_a(G_OBJECT_TYPE(widget), type) &&
               get_label_texts(widget) == std::string(label) + "\n";
    });
}

GtkWidget *find_button(GtkWidget *root, std::string_view label)
{
    return find_labelled(root, GTK_TYPE_BUTTON, label);
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
    GtkWidget *item = menu == nullptr ? nullptr : find_labelled(menu, GTK_TYPE_MENU_ITEM, label);
    if (item == nullptr || !gtk_widget_is_sensitive(item))
        return false;
    gtk_menu_shell_activate_item(GTK_MENU_SHELL(menu), item, TRUE);
    return true;
}

bool close_window(std::string_view title)
{
    GtkWidget *window = find_window(title);
    if (window != nullptr)
        send_close_request(window);
    return window != nullptr;
}

// Events.

// From the user's pointer or keyboard, or from the window manager.
static z_gdk_event_ptr create_event(GdkEventType type, GdkWindow *window,
                                    GdkDevice *(*get_device)(GdkSeat *) = gdk_seat_get_pointer)
{
    z_gdk_event_ptr event(gdk_event_new(type));
    event->any.window = z_share(window).release();
    event->any.send_event = TRUE;
    GdkDevice *device = get_device(gdk_display_get_default_seat(gdk_window_get_display(window)));
    gdk_event_set_device(event.get(), device);
    gdk_event_set_source_device(event.get(), device);
    return event;
}

void send_close_request(GtkWidget *window)
{
    gtk_main_do_event(create_event(GDK_DELETE, gtk_widget_get_window(window)).get());
}

void click_at(GtkWidget *widget, int x, int y, guint button)
{
    if (!gtk_widget_get_has_window(widget)) {
        GtkAllocation allocation;
        gtk_widget_get_allocation(widget, &allocation);
        x += allocation.x;
        y += allocation.y;
    }
    const z_ref<GdkWindow> window = z_share(gtk_widget_get_window(widget));
    for (const GdkEventType type : {GDK_BUTTON_PRESS, GDK_BUTTON_RELEASE}) {
        // The press may have closed the window.
        if (gdk_window_is_destroyed(window.get()))
            return;
        const z_gdk_event_ptr event = create_event(type, window.get());
        event->button.x = x;
        event->button.y = y;
        event->button.button = button;
        gtk_main_do_event(event.get());
    }
}

void click(GtkWidget *widget)
{
    click_at(widget, gtk_widget_get_allocated_width(widget) / 2, gtk_widget_get_allocated_height(widget) / 2);
}

void press_key(GtkWidget *window, guint keyval)
{
    const z_ref<GdkWindow> gdk_window = z_share(gtk_widget_get_window(window));
    z_ptr<GdkKeymapKey, g_free> keys;
    int count = 0;
    (void)gdk_keymap_get_entries_for_keyval(
        gdk_keymap_get_for_display(gdk_window_get_display(gdk_window.get())), keyval, z_out(keys), &count);
    for (const GdkEventType type : {GDK_KEY_PRESS, GDK_KEY_RELEASE}) {
        if (gdk_window_is_destroyed(gdk_window.get()) || !gdk_window_is_visible(gdk_window.get()))
            return;
        const z_gdk_event_ptr event = create_event(type, gdk_window.get(), gdk_seat_get_keyboard);
        event->key.keyval = keyval;
        event->key.hardware_keycode = count > 0 ? static_cast<guint16>(keys->keycode) : guint16{0};
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
    : surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, gtk_widget_get_allocated_width(widget),
                                         gtk_widget_get_allocated_height(widget)))
{
    gtk_widget_draw(widget, z_cairo_ptr(cairo_create(surface.get())).get());
    cairo_surface_flush(surface.get());
}

uint32_t Picture::get_rgb(int x, int y) const
{
    const int stride = cairo_image_surface_get_stride(surface.get());
    uint32_t pixel;
    std::memcpy(&pixel, cairo_image_surface_get_data(surface.get()) + y * stride + x * 4, sizeof pixel);
    return pixel & 0xffffffU;
}
