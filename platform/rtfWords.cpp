#include "platform/rtfWords.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace zorvo {

namespace {

using Action = RtfAction;

constexpr std::array kWords = {
    RtfWord{"emdash", Action::character, 0x2014},
    RtfWord{"endash", Action::character, 0x2013},
    RtfWord{"bullet", Action::character, 0x2022},
    RtfWord{"lquote", Action::character, 0x2018},
    RtfWord{"rquote", Action::character, 0x2019},
    RtfWord{"ldblquote", Action::character, 0x201C},
    RtfWord{"rdblquote", Action::character, 0x201D},
    RtfWord{"emspace", Action::character, 0x2003},
    RtfWord{"enspace", Action::character, 0x2002},
    RtfWord{"qmspace", Action::character, 0x2005},
    RtfWord{"tab", Action::character, '\t'},

    RtfWord{"par", Action::paragraph},
    RtfWord{"line", Action::paragraph},
    RtfWord{"lbr", Action::paragraph},
    RtfWord{"page", Action::paragraph},
    RtfWord{"column", Action::paragraph},
    RtfWord{"sect", Action::paragraph},
    RtfWord{"cell", Action::paragraph},
    RtfWord{"nestcell", Action::paragraph},
    RtfWord{"row", Action::paragraph},
    RtfWord{"nestrow", Action::paragraph},
    RtfWord{"softline", Action::paragraph},
    RtfWord{"softpage", Action::paragraph},
    RtfWord{"softcol", Action::paragraph},

    RtfWord{"colortbl", Action::skipGroup},
    RtfWord{"stylesheet", Action::skipGroup},
    RtfWord{"listtable", Action::skipGroup},
    RtfWord{"listoverridetable", Action::skipGroup},
    RtfWord{"filetbl", Action::skipGroup},
    RtfWord{"revtbl", Action::skipGroup},
    RtfWord{"rsidtbl", Action::skipGroup},
    RtfWord{"info", Action::skipGroup},
    RtfWord{"generator", Action::skipGroup},
    RtfWord{"pict", Action::skipGroup},
    RtfWord{"nonshppict", Action::skipGroup},
    RtfWord{"objclass", Action::skipGroup},
    RtfWord{"objname", Action::skipGroup},
    RtfWord{"objdata", Action::skipGroup},
    RtfWord{"shprslt", Action::skipGroup},
    RtfWord{"sp", Action::skipGroup},
    RtfWord{"fldinst", Action::skipGroup},
    RtfWord{"fldtype", Action::skipGroup},
    RtfWord{"datafield", Action::skipGroup},
    RtfWord{"formfield", Action::skipGroup},
    RtfWord{"xe", Action::skipGroup},
    RtfWord{"tc", Action::skipGroup},
    RtfWord{"tcn", Action::skipGroup},
    RtfWord{"rxe", Action::skipGroup},
    RtfWord{"bkmkstart", Action::skipGroup},
    RtfWord{"bkmkend", Action::skipGroup},
    RtfWord{"annotation", Action::skipGroup},
    RtfWord{"atnid", Action::skipGroup},
    RtfWord{"atnauthor", Action::skipGroup},
    RtfWord{"header", Action::skipGroup},
    RtfWord{"headerl", Action::skipGroup},
    RtfWord{"headerr", Action::skipGroup},
    RtfWord{"headerf", Action::skipGroup},
    RtfWord{"footer", Action::skipGroup},
    RtfWord{"footerl", Action::skipGroup},
    RtfWord{"footerr", Action::skipGroup},
    RtfWord{"footerf", Action::skipGroup},
    RtfWord{"ftnsep", Action::skipGroup},
    RtfWord{"ftnsepc", Action::skipGroup},
    RtfWord{"ftncn", Action::skipGroup},
    RtfWord{"aftnsep", Action::skipGroup},
    RtfWord{"aftnsepc", Action::skipGroup},
    RtfWord{"aftncn", Action::skipGroup},
    // Numbers and bullets in front of paragraphs aren't typed by anybody.
    RtfWord{"listtext", Action::skipGroup},
    RtfWord{"pntext", Action::skipGroup},
    RtfWord{"pntxta", Action::skipGroup},
    RtfWord{"pntxtb", Action::skipGroup},

    RtfWord{"shpinst", Action::container},
    RtfWord{"shpgrp", Action::container},
    RtfWord{"do", Action::container},
    RtfWord{"shptxt", Action::partedText},
    RtfWord{"dptxbxtext", Action::partedText},
    RtfWord{"footnote", Action::partedText},

    RtfWord{"fonttbl", Action::fontTable},
    RtfWord{"f", Action::font},
    RtfWord{"deff", Action::defaultFont},
    RtfWord{"fcharset", Action::fontCharset},
    RtfWord{"cpg", Action::fontCodePage},
    RtfWord{"ansicpg", Action::codePage},
    RtfWord{"mac", Action::fixedCodePage, 10000},
    RtfWord{"pc", Action::fixedCodePage, 437},
    RtfWord{"pca", Action::fixedCodePage, 850},

    RtfWord{"v", Action::hidden},
    RtfWord{"deleted", Action::deleted},
    RtfWord{"plain", Action::plain},
    RtfWord{"uc", Action::fallbackLength},
    RtfWord{"u", Action::unicode},
    RtfWord{"bin", Action::binary},
};

constexpr std::size_t kSlots = 512;
static_assert(kWords.size() < kSlots / 2);

std::size_t slotOf(std::uint64_t first)
{
    return first * 0x9E3779B97F4A7C15U >> 32U & (kSlots - 1);
}

class WordTable {
public:
    WordTable()
    {
        for (const RtfWord& word : kWords) {
            std::uint64_t first = 0;
            std::memcpy(&first, word.name.data(), std::min(word.name.size(), sizeof first));
            std::size_t slot = slotOf(first);
            while (slots_[slot].word != nullptr)
                slot = (slot + 1) % kSlots;
            slots_[slot] = {first, &word};
        }
    }

    const RtfWord* find(std::string_view name, std::uint64_t first) const
    {
        for (std::size_t slot = slotOf(first); slots_[slot].word != nullptr; slot = (slot + 1) % kSlots)
            if (slots_[slot].first == first &&
                (name.size() < sizeof first || slots_[slot].word->name == name))
                return slots_[slot].word;
        return nullptr;
    }

private:
    struct Slot {
        std::uint64_t first = 0;
        const RtfWord* word = nullptr;
    };
    std::array<Slot, kSlots> slots_;
};

} // namespace

const RtfWord* findRtfWord(std::string_view name, std::uint64_t first)
{
    static const WordTable table;
    return table.find(name, first);
}

} // namespace zorvo
