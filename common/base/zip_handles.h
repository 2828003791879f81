#pragma once

// Owners of libzip's objects. An archive that ends without z_zip_close_archive loses its changes.

#include <zip.h>

#include "common/base/handles.h"

using z_zip_archive_ptr = z_ptr<zip_t, zip_discard>;
using z_zip_file_ptr = z_ptr<zip_file_t, zip_fclose>;
using z_zip_source_ptr = z_ptr<zip_source_t, zip_source_free>;
