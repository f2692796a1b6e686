#include "controls/ViewDisableSubviews.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <array>

namespace quillmeter {
namespace {

constexpr auto kTagProperty = "tag";

SubviewFilter ofType(const QMetaObject& type) {
  return [&type](const QWidget* view) { return view->metaObject()->inherits(&type); };
}

SubviewFilter inTagRange(TagRange range) {
  return [range](const QWidget* view) { return range.contains(tagOf(view)); };
}

SubviewFilter withTags(const std::set<std::int64_t>& tags) {
  return [&tags](const QWidget* view) { return tags.contains(tagOf(view)); };
}

SubviewFilter both(SubviewFilter first, SubviewFilter second) {
  return [first = std::move(first), second = std::move(second)](const QWidget* view) {
    return first(view) && second(view);
  };
}

}  // namespace

std::int64_t tagOf(const QWidget* view) {
  const QVariant tag = view->property(kTagProperty);
  if (tag.isValid()) return tag.toLongLong();
  return isControl(view) ? 0 : -1;
}

void setTag(QWidget* view, std::int64_t tag) {
  view->setProperty(kTagProperty, QVariant::fromValue(static_cast<qlonglong>(tag)));
}

bool isControl(const QWidget* view) {
  static const std::array<const QMetaObject*, 9> kControls{
      &QAbstractButton::staticMetaObject,   &QLabel::staticMetaObject,    &QLineEdit::staticMetaObject,
      &QAbstractSpinBox::staticMetaObject,  &QComboBox::staticMetaObject, &QAbstractSlider::staticMetaObject,
      &QAbstractItemView::staticMetaObject, &QTextEdit::staticMetaObject, &QPlainTextEdit::staticMetaObject};
  return std::any_of(kControls.begin(), kControls.end(),
                     [view](const QMetaObject* control) { return view->metaObject()->inherits(control); });
}

void disableSubviewsFilter(QWidget* view, bool disable, const SubviewFilter& filter) {
  for (QObject* child : view->children()) {
    auto* subview = qobject_cast<QWidget*>(child);
    if (subview == nullptr || subview->isWindow()) continue;
    disableSubviewsFilter(subview, disable, filter);
    if ((!filter || filter(subview)) && isControl(subview)) subview->setEnabled(!disable);
  }
}

void disableSubviews(QWidget* view, bool disable) {
  disableSubviewsFilter(view, disable, nullptr);
}

void disableSubviewsOfType(QWidget* view, bool disable, const QMetaObject& type) {
  disableSubviewsFilter(view, disable, ofType(type));
}

void disableSubviewsInTagRange(QWidget* view, bool disable, TagRange range) {
  disableSubviewsFilter(view, disable, inTagRange(range));
}

void disableSubviewsStartTagEndTag(QWidget* view, bool disable, std::int64_t startTag, std::int64_t endTag) {
  disableSubviewsInTagRange(view, disable, tagRange(startTag, endTag));
}

void disableSubviewsWithTags(QWidget* view, bool disable, const std::set<std::int64_t>& tags) {
  disableSubviewsFilter(view, disable, withTags(tags));
}

void disableSubviewsOfTypeInTagRange(QWidget* view, bool disable, const QMetaObject& type, TagRange range) {
  disableSubviewsFilter(view, disable, both(ofType(type), inTagRange(range)));
}

void disableSubviewsOfTypeWithTags(QWidget* view, bool disable, const QMetaObject& type,
                                   const std::set<std::int64_t>& tags) {
  disableSubviewsFilter(view, disable, both(ofType(type), withTags(tags)));
}

}  // namespace quillmeter
