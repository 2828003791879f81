#include "common/gui/native_chooser.h"

#include <string>
#include <vector>

#include "common/gui/win32/native_dialog_calls.h"

#include <cderr.h>
#include <commctrl.h>
#include <dlgs.h>

#include "common/gui/file_dialog.h"
#include "common/gui/window_stack.h"
#include "tests/support/open_handles.h"
#include "tests/support/user_sandbox.h"
#include "tests/support/windows.h"

namespace {

using namespace std::string_literals;

// What one dialog was asked for.
struct Dialog {
    std::wstring filters, name, title, extension;
    DWORD flags = 0;
};

// What the user does in it. No names: cancels, or the dialog fails.
struct Choice {
    std::wstring names;
    DWORD filter_index = 1, error = 0;
};

struct NativeChooserTest : UserSandboxTest {
    NativeChooserTest() : window(gtk_window_new(GTK_WINDOW_TOPLEVEL))
    {
        main_thread = GetCurrentThreadId();
        dialogs.clear();
        freed_count = 0;
        z_native_dialog.get_open_file_name = z_native_dialog.get_save_file_name = choose;
        z_native_dialog.get_extended_error = +[]() WINAPI { return last_error; };
        z_native_dialog.free_item = +[](void *item) WINAPI {
            EXPECT_EQ(item, &an_item);
            ++freed_count;
        };
        z_window_stack_push_window(stack.get(), window);
        show_and_wait_for_draw(window);
    }
    ~NativeChooserTest() override
    {
        EXPECT_TRUE(gtk_widget_is_sensitive(window));
        z_native_dialog = real;
        z_file_dialog_clean_up();
        gtk_widget_destroy(window);
    }

    static BOOL WINAPI choose(OPENFILENAMEW *record)
    {
        const wchar_t *filter = record->lpstrFilter;
        while (*filter != L'\0')
            filter += std::wcslen(filter) + 1;
        dialogs.push_back({{record->lpstrFilter, filter},
                           record->lpstrFile,
                           record->lpstrTitle,
                           record->lpstrDefExt != nullptr ? record->lpstrDefExt : L"",
                           record->Flags});
        EXPECT_EQ(record->nMaxFile, DWORD{8192});
        EXPECT_TRUE(IsWindow(record->hwndOwner));
        EXPECT_NE(GetCurrentThreadId(), main_thread);
        const Choice choice = choices.at(dialogs.size() - 1);
        last_error = choice.error;
        record->nFilterIndex = choice.filter_index;
        if (!choice.names.empty()) {
            *std::copy(choice.names.begin(), choice.names.end(), record->lpstrFile) = L'\0';
            const size_t first_end = choice.names.find(L'\0');
            const size_t last_delimiter = choice.names.rfind(L'\\');
            const bool are_several = first_end != std::wstring::npos;
            record->nFileOffset = static_cast<WORD>((are_several ? first_end : last_delimiter) + 1);
            record->lpstrFile[choice.names.size() + 1] = are_several ? L'\0' : L'x'; // of an older name
        }
        return !choice.names.empty();
    }
    std::vector<std::string> open(std::initializer_list<z_file_type> types)
    {
        std::vector<std::string> names;
        for (const z_utf8_ptr &path : z_file_dialog_get_multiple_file_paths_for_reading(
                 stack.get(), "Open", nullptr, {types.begin(), types.size()}))
            names.emplace_back(path.get());
        return names;
    }
    std::string save(const std::string &suggestion)
    {
        const z_utf8_ptr chosen =
            z_file_dialog_get_file_path_for_writing(stack.get(), suggestion.c_str(), Z_FILE_TYPE_TEMPLATE);
        return chosen != nullptr ? chosen.get() : "none";
    }
    std::wstring wide(std::string_view name) const
    {
        return (root / to_path(name)).wstring();
    }

    static inline const z_native_dialog_calls real = z_native_dialog;
    static inline ITEMIDLIST an_item;
    static inline DWORD main_thread, last_error;
    static inline std::vector<Dialog> dialogs;
    static inline std::vector<Choice> choices; // One a dialog.
    static inline int freed_count;
    const z_window_stack_ptr stack = z_window_stack_new();
    GtkWidget *const window;
};

TEST_F(NativeChooserTest, AsksForTheTypesOnAThreadOfItsOwn)
{
    choices = {{}, {wide("home")}, {}, {}, {wide("new.txt"), 2}};
    EXPECT_TRUE(open({Z_FILE_TYPE_JPEG, Z_FILE_TYPE_PNG}).empty());
    EXPECT_EQ(dialogs[0].filters, L"Matching files\0*.jpg;*.jpeg;*.png\0"
                                  L"JPEG files (.jpg;.jpeg)\0*.jpg;*.jpeg\0"
                                  L"PNG files (.png)\0*.png\0"
                                  L"All files (*.*)\0*.*\0"s);
    EXPECT_EQ(dialogs[0].extension, L"jpg");
    EXPECT_EQ(dialogs[0].title, L"Open");
    EXPECT_EQ(dialogs[0].flags, DWORD{OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_FILEMUSTEXIST |
                                      OFN_PATHMUSTEXIST | OFN_ALLOWMULTISELECT});

    EXPECT_EQ(open({}).size(), 1u);
    EXPECT_TRUE(open({}).empty());
    EXPECT_EQ(dialogs[2].name, wide("*.*")) << "The folder used last, with what is shown of it.";
    EXPECT_EQ(save(std::string(300, 'x')), "none");
    EXPECT_EQ(dialogs[3].name, L"") << "It does not fit.";
    EXPECT_EQ(dialogs[3].flags, DWORD{OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY});
    EXPECT_EQ(save(path("first.template")), path("new.txt")) << "All files were shown.";
    EXPECT_EQ(dialogs[4].name, wide("first.template"));
}

TEST_F(NativeChooserTest, TakesOneFileOrSeveral)
{
    const std::string one = write_file("one.template", "");
    const std::string two = write_file("zwei \u00e4\U0001F600.template", "");
    choices = {{wide("one.template")},
               {root.wstring() + L"\0one.template\0zwei \u00e4\U0001F600.template\0"s},
               {L"", 1, FNERR_BUFFERTOOSMALL},
               {L"", 1, CDERR_INITIALIZATION},
               {L"C:\\\xD800.template"}};
    EXPECT_EQ(open({Z_FILE_TYPE_TEMPLATE}), std::vector{one});
    EXPECT_EQ(open({Z_FILE_TYPE_TEMPLATE}), (std::vector{one, two}));
    Steps steps;
    for (const char *text : {"Too many files were chosen at once.", "The file dialog could not be shown."}) {
        steps.add([text] { return answer("Error", text, "Close"); });
        EXPECT_TRUE(open({Z_FILE_TYPE_TEMPLATE}).empty());
    }
    steps.add([] { return press_button("Error", "Close"); }); // no text
    EXPECT_TRUE(open({Z_FILE_TYPE_TEMPLATE}).empty());
}

TEST_F(NativeChooserTest, BrowsesForAFolderOfTheFileSystem)
{
    z_native_dialog.browse_for_folder = +[](BROWSEINFOW *browser) WINAPI {
        EXPECT_STREQ(browser->lpszTitle, L"Select");
        EXPECT_EQ(browser->ulFlags, UINT{BIF_RETURNONLYFSDIRS});
        EXPECT_TRUE(IsWindow(browser->hwndOwner));
        EXPECT_NE(GetCurrentThreadId(), main_thread);
        return &an_item;
    };
    z_native_dialog.get_path_from_id_list = +[](const ITEMIDLIST *, wchar_t *path) WINAPI -> BOOL {
        std::wcscpy(path, L"C:\\folder\\");
        return TRUE;
    };
    EXPECT_STREQ(z_file_dialog_get_folder_path(stack.get(), "Select").get(), "C:\\folder");
    EXPECT_EQ(freed_count, 1);
    z_native_dialog.get_path_from_id_list =
        +[](const ITEMIDLIST *, wchar_t *) WINAPI -> BOOL { return FALSE; };
    Steps steps;
    steps.add([] { return answer("Error", "The folder has no path, or one that is too long.", "Close"); });
    EXPECT_EQ(z_file_dialog_get_folder_path(stack.get(), "Select"), nullptr);
    EXPECT_EQ(freed_count, 2);
    z_native_dialog.browse_for_folder = +[](BROWSEINFOW *) WINAPI -> ITEMIDLIST * { return nullptr; };
    EXPECT_EQ(z_file_dialog_get_folder_path(stack.get(), "Select"), nullptr);
    EXPECT_EQ(freed_count, 2);
}

// The windows of the program live on while the dialog is open, and nothing is left of it.
TEST_F(NativeChooserTest, LetsEventsThroughMeanwhile)
{
    static const HANDLE painted = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const z_source timer(g_timeout_add(
        5, +[](gpointer) -> gboolean { return SetEvent(painted), G_SOURCE_CONTINUE; }, nullptr));
    z_native_dialog.get_open_file_name = +[](OPENFILENAMEW *) WINAPI -> BOOL {
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(WaitForSingleObject(painted, 5000), WAIT_OBJECT_0);
        return FALSE;
    };
    EXPECT_TRUE(open({}).empty());
    const OpenHandles handles;
    EXPECT_TRUE(open({}).empty());
}

TEST_F(NativeChooserTest, TheRealDialogGivesTheTypedFile)
{
    const std::string file = write_file("a.template", "");
    z_native_dialog = real;
    Steps steps;
    steps.add([this] {
        const HWND dialog = FindWindowW(L"#32770", L"Open");
        // The field for the file's name, in its box.
        const HWND box = GetDlgItem(dialog, cmb13);
        const auto name = reinterpret_cast<HWND>(SendMessageW(box, CBEM_GETEDITCONTROL, 0, 0));
        return name != nullptr && SetWindowTextW(name, wide("a.template").c_str()) != FALSE &&
               PostMessageW(dialog, WM_COMMAND, IDOK, 0) != FALSE;
    });
    EXPECT_EQ(open({Z_FILE_TYPE_TEMPLATE}), std::vector{file});
}

} // namespace
