#include "platform/qt/form_layouts.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QWidget>
#include <algorithm>
#include <array>
#include <string>

namespace kxc::qt {

namespace {

std::string lowerAscii(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return out;
}

// Hands out the form's widgets by name and remembers which were placed.
class Placer {
 public:
  explicit Placer(const WidgetByName& widget) : widget_(widget) {}

  QWidget* take(std::string_view name) {
    QWidget* w = widget_(name);
    if (w) placed_.push_back(w);
    return w;
  }

  // One row of a grid: caption label, editor, browse button, value label. The editor and the
  // value share the spare width.
  void addEditorRow(QGridLayout& grid, int row, const std::array<std::string_view, 4>& names) {
    for (int column = 0; column < 4; ++column) {
      if (QWidget* w = take(names[column])) grid.addWidget(w, row, column);
    }
  }

  // A frame holding `inner`; without the frame the layout goes straight into `outer`.
  void addFramed(QBoxLayout& outer, std::string_view frameName, QLayout* inner, int stretch) {
    if (auto* frame = qobject_cast<QGroupBox*>(take(frameName))) {
      frame->setLayout(inner);
      outer.addWidget(frame, stretch);
    } else {
      outer.addLayout(inner, stretch);
    }
  }

  QHBoxLayout* buttonRow(std::initializer_list<std::string_view> names) {
    auto* row = new QHBoxLayout;
    row->setObjectName(QStringLiteral("buttonRow"));
    row->addStretch(1);
    for (std::string_view name : names) {
      if (QWidget* w = take(name)) row->addWidget(w);
    }
    return row;
  }

  std::vector<QWidget*> placed() const { return placed_; }

 private:
  const WidgetByName& widget_;
  std::vector<QWidget*> placed_;
};

void configureEditorGrid(QGridLayout& grid) {
  grid.setColumnStretch(1, 3);  // editor
  grid.setColumnStretch(3, 2);  // resolved value
}

void layoutCacheFormula(Placer& p, QVBoxLayout& top) {
  auto* cache = new QGridLayout;
  configureEditorGrid(*cache);
  p.addEditorRow(*cache, 0, {"lblCache", "txtCache", "cmdCache", "lblCacheVal"});
  p.addEditorRow(*cache, 1,
                 {"lblMeasureIndex", "txtMeasureIndex", "cmdMeasureIndex", "lblMeasureIndexVal"});
  p.addFramed(top, "frCache", cache, 0);

  auto* dim = new QGridLayout;
  configureEditorGrid(*dim);
  p.addEditorRow(*dim, 0, {"lblDimensions", "txtDimensions", "cmdDimension", "lblDimensionsVal"});
  if (QWidget* list = p.take("lvDimensions")) dim->addWidget(list, 1, 0, 1, 4);
  dim->setRowStretch(1, 1);
  p.addFramed(top, "frDim", dim, 1);

  if (QWidget* result = p.take("lblResult")) top.addWidget(result);
  top.addLayout(p.buttonRow({"cmdOk", "cmdCancel"}));
}

void layoutLookup(Placer& p, QVBoxLayout& top) {
  if (QWidget* list = p.take("lvList")) top.addWidget(list, 1);
  top.addLayout(p.buttonRow({"cmdOk", "cmdCancel"}));
}

void layoutTransactions(Placer& p, QVBoxLayout& top) {
  if (QWidget* grid = p.take("vasTrans")) top.addWidget(grid, 1);
  top.addLayout(p.buttonRow({"cmdCancel"}));
}

using LayoutFunction = void (*)(Placer&, QVBoxLayout&);

LayoutFunction layoutFor(std::string_view formName) {
  const std::string name = lowerAscii(formName);
  if (name == "frmcacheformula") return layoutCacheFormula;
  if (name == "frmlookup") return layoutLookup;
  if (name == "frmtransactions") return layoutTransactions;
  return nullptr;
}

}  // namespace

bool hasFormLayout(std::string_view formName) { return layoutFor(formName) != nullptr; }

std::optional<std::vector<QWidget*>> applyFormLayout(std::string_view formName, QWidget& content,
                                                     const WidgetByName& widget) {
  LayoutFunction layout = layoutFor(formName);
  if (!layout) return std::nullopt;
  auto* top = new QVBoxLayout(&content);
  Placer placer(widget);
  layout(placer, *top);
  return placer.placed();
}

void addUnplaced(QWidget& content, QWidget& widget) {
  auto* top = qobject_cast<QVBoxLayout*>(content.layout());
  if (!top) return;
  int at = top->count();
  for (int i = 0; i < top->count(); ++i) {
    if (QLayout* inner = top->itemAt(i)->layout();
        inner && inner->objectName() == QLatin1String("buttonRow")) {
      at = i;
    }
  }
  top->insertWidget(at, &widget);
}

}  // namespace kxc::qt
