#include "tests/window/WindowTest.h"
#include "window/TreeNodes.h"

#include <random>
#include <set>

namespace zorvo {
namespace {

TEST(KeyIndex, FindsWhatIsInItThroughAnyOrderOfComingAndGoing)
{
    // Few keys and many changes: slots collide, fill and empty over and over.
    std::mt19937 random(7);
    TreeNodes nodes;
    std::set<std::string> expected;
    for (int nRound = 0; nRound < 3000; ++nRound) {
        const std::string key = std::to_string(random() % 90);
        if (expected.erase(key))
            nodes.remove(*nodes.find(key));
        else
            nodes.add("", *expected.insert(key).first, "", 0, 0);
        for (int i = 0; i < 90; ++i) {
            const TreeNode* found = nodes.find(std::to_string(i));
            ASSERT_EQ(found != nullptr, expected.count(std::to_string(i)) == 1) << "round " << nRound;
            ASSERT_TRUE(!found || found->key() == std::to_string(i));
        }
    }
}

TEST(KeyIndex, TellsKeysThatContainAZeroCharacterApart)
{
    TreeNodes nodes;
    nodes.add("", std::string("a\0b", 3), "", 0, 0);
    nodes.add("", std::string("a\0c", 3), "", 0, 0);
    EXPECT_EQ(nodes.find(std::string_view("a\0c", 3))->index(), 2);
    EXPECT_EQ(nodes.find("a"), nullptr);
}

} // namespace
} // namespace zorvo
