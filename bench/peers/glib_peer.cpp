// GLib's GKeyFile.

#include "workloads.h"

#include <glib.h>

int main(int Count, char** Arguments) {
    const peers::TRows rows(Count, Arguments);
    gchar* text = nullptr;
    gsize length = 0;
    const auto write = [&] {
        g_free(text);
        GKeyFile* file = g_key_file_new();
        for (int i = 0; i < peers::CIniKeys; ++i)
            g_key_file_set_integer(file, peers::IniSection(i).c_str(), peers::IniKey(i).c_str(), i);
        text = g_key_file_to_data(file, &length, nullptr);
        g_key_file_free(file);
    };
    rows.Time(peers::CIniWrite, write);
    write();
    rows.Time(peers::CIniRead, [&] {
        GKeyFile* file = g_key_file_new();
        g_key_file_load_from_data(file, text, length, G_KEY_FILE_NONE, nullptr);
        double sum = 0;
        for (int i = 0; i < peers::CIniKeys; ++i)
            sum +=
                g_key_file_get_integer(file, peers::IniSection(i).c_str(), peers::IniKey(i).c_str(), nullptr);
        peers::Keep(sum);
        g_key_file_free(file);
    });
    g_free(text);
}
