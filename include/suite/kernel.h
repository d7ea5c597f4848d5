#pragma once

#include "suite/export.h"

/// Name resolution as the design tools do it. Texts are UTF-8.

extern "C" {

struct KernelContext;

/// @return the context of a project, to be closed with KernelCloseContext, or null if there is no such
/// project.
OVSUITE_API KernelContext* KernelOpenContext(const char* projectPath);

/// Writes the full path of what a name stands for to `buffer`, of kLocationBufferSize bytes. Environment
/// references are expanded; a soft name is looked up in the context's project, its case counts; a relative
/// path begins at the project's directory.
/// @return non-zero if what the name stands for exists; otherwise the buffer is left alone.
OVSUITE_API int KernelResolveName(const char* name, char* buffer, KernelContext* context);

/// Releases the context and makes it null. A null context is left alone.
OVSUITE_API void KernelCloseContext(KernelContext** context);
}
