#pragma once

#include <memory>

/// What the program asks of a machine: all ports in one place. A program installs the adaptors of its
/// platform at its start, a test its fakes.
namespace zorvo {

class FileSearch;
class Files;
class HelpViewer;
class Launcher;
class LibraryLoader;
class Machine;
class ObjectCreator;
class ObjectService;
class Office;
class PageEngine;
class Registry;
class SettingsStore;
class SpecialFolders;

struct Platform {
    std::shared_ptr<Registry> registry;
    std::shared_ptr<SettingsStore> settings;
    std::shared_ptr<Files> files;
    std::shared_ptr<SpecialFolders> folders;
    std::shared_ptr<Launcher> launcher;
    std::shared_ptr<LibraryLoader> libraries;
    std::shared_ptr<ObjectCreator> objects;
    std::shared_ptr<ObjectService> service;
    std::shared_ptr<Office> office;
    std::shared_ptr<Machine> machine;
    std::shared_ptr<HelpViewer> help;
    std::shared_ptr<FileSearch> fileSearch;
    /// Null where a page can't be shown inside a window; a plain view of rich text takes its place.
    std::shared_ptr<PageEngine> pages;
};

/// The installed ports.
Platform& platform();

} // namespace zorvo
