#pragma once

namespace bench {

/// Each tells the benchmark library of the measurements of one subject. The dialog's needs an application
/// object.
void registerReads();
void registerLoads();
void registerSaves();
void registerDialog();
void registerStartup();
void registerSchemeFile();
void registerObjects();
void registerSheets();
void registerChooser();
void registerLibraries();
void registerDesigns();
void registerGrowth();
void registerPeers(); ///< if they are built

} // namespace bench
