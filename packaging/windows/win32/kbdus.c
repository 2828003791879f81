// The layout library of an American keyboard. GTK reads the layout from such a library, and Wine has none.

#include <windows.h>

enum { SHIFT = 1, CONTROL = 2, ALT = 4 };

// The records stand in the library as the system lays them out; what is not needed is left null.
typedef struct {
    BYTE key;
    BYTE bits;
} modifier_key;

typedef struct {
    const modifier_key *keys;
    WORD highest_bits;
    BYTE column_of_bits[4];
} modifiers;

typedef struct {
    BYTE key;
    BYTE caps_lock;
    WCHAR characters[2];
} key_row;

typedef struct {
    const void *rows;
    BYTE column_count;
    BYTE row_size;
} key_table;

typedef struct {
    const modifiers *modifiers;
    const key_table *tables;
    const void *dead_keys, *names, *extended_names, *dead_names;
    const USHORT *scan_codes;
    BYTE scan_code_count;
    const void *scan_codes_e0, *scan_codes_e1;
    DWORD flags;
    BYTE ligature_length, ligature_size;
    const void *ligatures;
} keyboard_layout;

static const modifier_key modifier_keys[] = {
    {VK_SHIFT, SHIFT}, {VK_CONTROL, CONTROL}, {VK_MENU, ALT}, {0, 0}};
static const modifiers all_modifiers = {modifier_keys, 3, {0, 1, 2, 3}};

#define LETTER(upper)                                                                                        \
    {                                                                                                        \
        upper, 1,                                                                                            \
        {                                                                                                    \
            upper + 'a' - 'A', upper                                                                         \
        }                                                                                                    \
    }

static const key_row rows[] = {
    LETTER('A'),
    LETTER('B'),
    LETTER('C'),
    LETTER('D'),
    LETTER('E'),
    LETTER('F'),
    LETTER('G'),
    LETTER('H'),
    LETTER('I'),
    LETTER('J'),
    LETTER('K'),
    LETTER('L'),
    LETTER('M'),
    LETTER('N'),
    LETTER('O'),
    LETTER('P'),
    LETTER('Q'),
    LETTER('R'),
    LETTER('S'),
    LETTER('T'),
    LETTER('U'),
    LETTER('V'),
    LETTER('W'),
    LETTER('X'),
    LETTER('Y'),
    LETTER('Z'),
    {'1', 0, L"1!"},
    {'2', 0, L"2@"},
    {'3', 0, L"3#"},
    {'4', 0, L"4$"},
    {'5', 0, L"5%"},
    {'6', 0, L"6^"},
    {'7', 0, L"7&"},
    {'8', 0, L"8*"},
    {'9', 0, L"9("},
    {'0', 0, L"0)"},
    {VK_OEM_1, 0, L";:"},
    {VK_OEM_PLUS, 0, L"=+"},
    {VK_OEM_COMMA, 0, L",<"},
    {VK_OEM_MINUS, 0, L"-_"},
    {VK_OEM_PERIOD, 0, L".>"},
    {VK_OEM_2, 0, L"/?"},
    {VK_OEM_3, 0, L"`~"},
    {VK_OEM_4, 0, L"[{"},
    {VK_OEM_5, 0, L"\\|"},
    {VK_OEM_6, 0, L"]}"},
    {VK_OEM_7, 0, L"'\""},
    {VK_OEM_102, 0, L"\\|"},
    {VK_SPACE, 0, L"  "},
    {VK_DECIMAL, 0, L".."},
    {VK_ADD, 0, L"++"},
    {VK_DIVIDE, 0, L"//"},
    {VK_MULTIPLY, 0, L"**"},
    {VK_SUBTRACT, 0, L"--"},
    {0},
};
static const key_table tables[] = {{rows, 2, sizeof rows[0]}, {0}};
static const USHORT scan_codes[1];
static const keyboard_layout layout = {
    .modifiers = &all_modifiers, .tables = tables, .scan_codes = scan_codes, .flags = 0x10000};

__declspec(dllexport) const keyboard_layout *KbdLayerDescriptor(void)
{
    return &layout;
}
