#pragma once

namespace zorvo {

/// Bounds what this process may use: half a gigabyte of memory, ten seconds of the processor, no new files of
/// any size, no core file. It ends when its parent does. Under sanitizers, which need more, memory is free.
void limitProcess();

/// From here on this process may open files for reading, use the files that it has open, and memory, and end:
/// any other request to the system ends it. What the kernel doesn't offer is left out.
void confineToReadingFiles();
/// The same, and no file may be opened any more.
void confineToOpenFiles();

} // namespace zorvo
