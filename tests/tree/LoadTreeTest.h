#pragma once

#include "tests/tree/TreeTest.h"
#include "tree/LoadTree.h"

namespace zorvo {

class LoadTreeTest : public TreeTest {
protected:
    void load() { LoadTree(tree, &listBar, false, false); }

    int readsOf(const std::string& sPath) const
    {
        int n = 0;
        for (const FakeFiles::Call& call : fakes.files->calls)
            n += call.operation == FakeFiles::Operation::read && call.sPath == sPath ? 1 : 0;
        return n;
    }

    const std::string sCentral = "C:\\Zorvo\\TreeData\\Zorvo Library.xml";
};

} // namespace zorvo
