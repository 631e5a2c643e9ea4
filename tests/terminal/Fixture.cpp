#include "terminal/Fixture.h"

#include "host/ConstDef.h"

#include <QVBoxLayout>

#include <stdexcept>

namespace Fixture {

namespace {

template <typename TComponent> TComponent* Named(const char* name, TComponent* component) {
  component->setObjectName(QLatin1String(name));
  return component;
}

} // namespace

TView::TView()
    : TIBaseView(nullptr), Symbol(Named("edtSymbol", new Platform::TcxPopupEdit)),
      Combo(Named("cmbOne", new Platform::TcxComboBox)),
      Button(Named("btnOne", new Platform::TcxButton(QStringLiteral("One")))),
      Item(Named("mOne", new Platform::TdxBarButton(QStringLiteral("Item"), this))),
      Menu(new Platform::TdxBarPopupMenu(this)),
      Grid(new Platform::TcxGrid(QStringLiteral("GridOne"), this)) {
  auto* column = new QVBoxLayout(this);
  for (QWidget* widget : {static_cast<QWidget*>(Symbol), static_cast<QWidget*>(Combo),
                          static_cast<QWidget*>(Button), static_cast<QWidget*>(Grid)})
    column->addWidget(widget);
  Lock.Name = Constdef::Button_Lock;
  Lock.ImageIndex = 4;
  Lock.Hint = "Lock";
  Lock.OnClick = [this](System::TObject*) { Lock.State = 1 - Lock.State; };
  Combo->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
  Combo->setCurrentIndex(-1);
  Menu->addAction(Item);
  auto* view = new Platform::TcxGridTableView(QStringLiteral("GridOneView"), Grid);
  new Platform::TcxGridLevel(QStringLiteral("GridOneLv"), Grid, view);
  view->CreateColumn(1, 60, false);
  view->CreateColumn(2, 60, true);
  view->SetDataSource(&Source);
  view->SetPopupMenu(Menu);
  connect(Combo, &QComboBox::currentIndexChanged, this, [this](int i) { Chosen.push_back(i); });
  connect(Button, &QPushButton::clicked, this, [this] { ++Pressed; });
  connect(Item, &QAction::triggered, this, [this] { ++Pressed; });
  connect(Symbol, &Platform::TcxPopupEdit::KeyDown, this, [this](int key) { Exits += key == 13; });
  connect(view, &Platform::TcxGridTableView::CellClick, this,
          [this](const Platform::TcxGridColumn* clicked) { Clicked.push_back(clicked->Tag); });
}

TView::~TView() { Grid->View()->SetDataSource(nullptr); }

int TView::GetWidth() {
  ++WidthAsked;
  if (GrowsWhenAsked) {
    ++Width;
    Baseview::SendViewNotify(this, Constdef::Notify_SizeChanged);
  }
  return Width;
}

bool TView::SetLayoutData(const std::string& layoutData) {
  if (layoutData == "bad")
    throw std::invalid_argument("bad");
  Layout = layoutData;
  Told.push_back("layout");
  return true;
}

bool TView::SetLanguage(int language) {
  Told.push_back("language " + std::to_string(language));
  return true;
}

bool TView::SetSkin(const std::string&) {
  Told.push_back("skin");
  return true;
}

bool TView::ExecuteShortcutAction(int) {
  Baseview::SendViewNotify(this, Constdef::Notify_Shortcut);
  return true;
}

Baseview::TInstanceHandle TDescriptor::OpenNewInstance() {
  auto view = std::make_unique<TView>();
  Last = view.get();
  if (AnnouncedWhileOpening)
    Baseview::SendViewNotify(Last, AnnouncedWhileOpening);
  return AddView(std::move(view));
}

} // namespace Fixture
