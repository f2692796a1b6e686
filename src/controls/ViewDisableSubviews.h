#pragma once

#include <QMetaObject>
#include <cstdint>
#include <functional>
#include <set>

#include "controls/TagRange.h"

class QWidget;

/// Enables or disables the controls nested in a view, at any depth, that pass a filter. `disable` true
/// disables, false enables. The view itself never changes. Containers (plain widgets, frames, scroll areas
/// ...) are passed over, since a disabled container would take its whole contents with it, but what they hold
/// is visited; so is what lies in a control. Children come before their parents; windows that belong to the
/// view are no part of it.
namespace quillmeter {

using SubviewFilter = std::function<bool(const QWidget*)>;

/// The number that a view is known by: its dynamic property "tag"; without one 0 for a control and -1 for
/// others.
[[nodiscard]] std::int64_t tagOf(const QWidget* view);
void setTag(QWidget* view, std::int64_t tag);

/// Whether a view can be enabled and disabled on its own: buttons, labels, fields, lists and their like.
[[nodiscard]] bool isControl(const QWidget* view);

/// Without a filter every control is taken.
void disableSubviewsFilter(QWidget* view, bool disable, const SubviewFilter& filter);
void disableSubviews(QWidget* view, bool disable);
/// Controls of the class or of one derived from it.
void disableSubviewsOfType(QWidget* view, bool disable, const QMetaObject& type);
void disableSubviewsInTagRange(QWidget* view, bool disable, TagRange range);
/// Tags from `startTag` to `endTag`, both included.
void disableSubviewsStartTagEndTag(QWidget* view, bool disable, std::int64_t startTag, std::int64_t endTag);
void disableSubviewsWithTags(QWidget* view, bool disable, const std::set<std::int64_t>& tags);
void disableSubviewsOfTypeInTagRange(QWidget* view, bool disable, const QMetaObject& type, TagRange range);
void disableSubviewsOfTypeWithTags(QWidget* view, bool disable, const QMetaObject& type,
                                   const std::set<std::int64_t>& tags);

}  // namespace quillmeter
