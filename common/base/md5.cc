#include "common/base/md5.h"

#include <cstring>

#include "common/base/input_stream.h"

using z_checksum_ptr = z_ptr<GChecksum, g_checksum_free>;

z_utf8_ptr z_util_get_file_md5sum(const char *path)
{
    const z_checksum_ptr checksum(g_checksum_new(G_CHECKSUM_MD5));
    const z_input_stream_ptr stream = z_input_stream_new_for_file_path(path);
    const void *data;
    size_t count;
    do {
        if (!z_input_stream_get_some(stream.get(), data, count))
            return nullptr;
        g_checksum_update(checksum.get(), static_cast<const guchar *>(data), static_cast<gssize>(count));
    } while (count > 0);
    return z_utf8_ptr(g_strdup(g_checksum_get_string(checksum.get())));
}

bool z_util_verify_md5sum(const char *path, const char *digest)
{
    const z_utf8_ptr found = z_util_get_file_md5sum(path);
    return found != nullptr && std::strcmp(found.get(), digest) == 0;
}
