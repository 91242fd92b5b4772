#pragma once

#include <QLayout>

namespace zorvo {

/// The one unit of distance, in logical pixels: between controls once, around a form twice.
inline constexpr int kSpacing = 8;
inline constexpr int kFormMargin = 2 * kSpacing;

/// For a layout that fills a form.
inline void spaceForm(QLayout& layout)
{
    layout.setContentsMargins(kFormMargin, kFormMargin, kFormMargin, kFormMargin);
    layout.setSpacing(kSpacing);
}

/// For a layout within another, which keeps the distances outside.
inline void spaceInner(QLayout& layout)
{
    layout.setContentsMargins(0, 0, 0, 0);
    layout.setSpacing(kSpacing);
}

} // namespace zorvo
