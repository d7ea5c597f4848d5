#include "dialog/pages/designs/libraryschemes.h"

#include <gtest/gtest.h>

TEST(LibrarySchemes, APartitionIsNamedFromItsLibrary) {
    struct Row {
        const char *base, *path, *relative;
    };
    constexpr Row kRows[] = {
        {"/net/lib/parts.lmc", "/net/lib/pdbs/a.pdb", "pdbs/a.pdb"},
        {"/net/lib/parts.lmc", "\\net\\lib/pdbs\\a.pdb", "pdbs\\a.pdb"},
        {"/net/lib/parts.lmc", "/net/other/a.pdb", "other/a.pdb"},
        {"/net/lib/parts.lmc", "/net", "/net"},
        {"/net/lib/parts.lmc", "/opt/pdbs/a.pdb", "/opt/pdbs/a.pdb"},
        {"\\\\server\\lib\\parts.lmc", "\\\\other\\a.pdb", "\\\\other\\a.pdb"},
        {"c:\\lib\\parts.lmc", "d:\\a.pdb", "d:\\a.pdb"},
        {"", "/opt/a.pdb", "/opt/a.pdb"},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(ovsettings::relativeTo(row.base, row.path), row.relative) << row.path;
}
