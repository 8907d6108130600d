#include "platform/qt/FormView.h"

#include <algorithm>
#include <cmath>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTextCursor>

#include "platform/qt/QtHost.h"

using forms::Control;
using forms::Kind;
using forms::Prop;

namespace {

// What a form's Width and Height hold beyond the client area: border and title bar.
constexpr int kFrameWidth = 8, kFrameHeight = 31;

int Px(int twips) { return static_cast<int>(std::lround(twips / static_cast<double>(forms::TwipsPerPixel))); }

// The view is showing the model: what the widgets signal now is not the operator.
class Applying {
public:
    explicit Applying(int& n) : n_(n) { ++n_; }
    ~Applying() { --n_; }
    Applying(const Applying&) = delete;
    Applying& operator=(const Applying&) = delete;
private:
    int& n_;
};

bool Focusable(Kind k) {
    return !(k == Kind::Label || k == Kind::Frame || k == Kind::TabStrip || k == Kind::Menu);
}

// A label shows "&&" as "&" and no access key without a buddy.
QString StripMnemonic(const QString& s) {
    QString out;
    for (qsizetype i = 0; i < s.size(); ++i) {
        if (s[i] == '&') {
            if (i + 1 < s.size() && s[i + 1] == '&') out += '&', ++i;
            continue;
        }
        out += s[i];
    }
    return out;
}

// Captions of command buttons wrap at blanks, as the old buttons did: a line
// takes words, with the blanks between them, while they fit; the blanks where
// it breaks go. A run of blanks in a caption is there to push a word down.
QString WrapCaption(const QString& caption, const QFont& font, int width) {
    QFontMetricsF fm(font);
    const double room = width - 10;
    if (room <= 0 || fm.horizontalAdvance(StripMnemonic(caption)) <= room) return caption;
    QStringList lines;
    QString line;
    qsizetype i = 0;
    while (i < caption.size()) {
        qsizetype start = i;
        while (start < caption.size() && caption[start] == ' ') ++start;
        qsizetype end = start;
        while (end < caption.size() && caption[end] != ' ') ++end;
        if (start == end) break;
        const QString blanks = caption.mid(i, start - i), word = caption.mid(start, end - start);
        i = end;
        QString tryLine = line.isEmpty() ? word : line + blanks + word;
        if (!line.isEmpty() && fm.horizontalAdvance(StripMnemonic(tryLine)) > room) {
            lines << line;
            line = word;
        } else {
            line = tryLine;
        }
    }
    if (!line.isEmpty()) lines << line;
    return lines.join('\n');
}

QColor ColorOf(forms::Color c) {
    const QPalette& pal = QApplication::palette();
    switch (static_cast<unsigned long>(c)) {
    case static_cast<unsigned long>(forms::vbWindowBackground): return pal.color(QPalette::Base);
    case static_cast<unsigned long>(forms::vbWindowText): return pal.color(QPalette::Text);
    case static_cast<unsigned long>(forms::vbButtonFace): return pal.color(QPalette::Button);
    case static_cast<unsigned long>(forms::vbButtonText): return pal.color(QPalette::ButtonText);
    default: break;
    }
    long rgb = forms::ResolveColor(c);   // BGR: red in the low byte
    return QColor(static_cast<int>(rgb & 0xFF), static_cast<int>((rgb >> 8) & 0xFF),
                  static_cast<int>((rgb >> 16) & 0xFF));
}

// Multi-line boxes hold CR LF in the model and LF in Qt.
QString ToPlain(const std::string& text) {
    QString t = ToQString(text);
    t.replace("\r\n", "\n");
    return t;
}

std::string FromPlain(const QString& text) {
    QString t = text;
    t.replace('\n', "\r\n");
    return FromQString(t);
}

// Caret positions between the two: every line end is two characters in the model.
int ModelPos(const QString& plain, int pos) {
    return pos + static_cast<int>(plain.left(pos).count('\n'));
}

int PlainPos(const std::string& text, int pos) {
    int out = pos;
    for (int i = 0; i + 1 < pos && i + 1 < static_cast<int>(text.size()); ++i)
        if (text[i] == '\r' && text[i + 1] == '\n') --out;
    return out;
}

// How much narrower the desktop's sans must be to take the room the old
// 8-point face took: measured against Liberation Sans, which has Arial's widths.
double SansScale() {
    static const double scale = [] {
        QFont ref("Liberation Sans");
        ref.setPointSizeF(8.25);
        QFont def = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        def.setPointSizeF(8.25);
        if (QFontInfo(ref).family() != "Liberation Sans") return 1.0;
        const QString sample = "Registration Number 0123456789 Last Name First Name Address City";
        double r = QFontMetricsF(ref).horizontalAdvance(sample) / QFontMetricsF(def).horizontalAdvance(sample);
        return std::clamp(r, 0.75, 1.0);
    }();
    return scale;
}

// The tabs across the top, the panel they belong to below them.
void LayoutTabStrip(QWidget* strip) {
    auto* bar = strip->findChild<QTabBar*>();
    auto* panel = strip->findChild<QFrame*>("panel");
    if (!bar || !panel) return;
    int h = std::min(strip->height(), bar->sizeHint().height());
    bar->setGeometry(0, 0, strip->width(), h);
    panel->setGeometry(0, h - 1, strip->width(), std::max(0, strip->height() - h + 1));
}

QString ObjectName(const Control& c) {
    QString n = ToQString(c.Name());
    return c.Index() >= 0 ? n + "(" + QString::number(c.Index()) + ")" : n;
}

// Where the operator left the caret and selection of a one-line box.
void UserCaret(const QLineEdit* e, Control& c) {
    if (e->hasSelectedText()) c.UserSelect(e->selectionStart(), static_cast<int>(e->selectedText().size()));
    else c.UserSelect(e->cursorPosition(), 0);
}

QLineEdit* LineEditOf(QWidget* w) {
    if (auto* e = qobject_cast<QLineEdit*>(w)) return e;
    if (auto* cb = qobject_cast<QComboBox*>(w)) return cb->lineEdit();
    return nullptr;
}

}  // namespace

QFont FormView::FontFor(const std::string& name, float size, bool bold, bool fixedPitch) {
    QString n = ToQString(name);
    QString lower = n.toLower();
    double pt = size > 0 ? size : 8.25;
    QFont f;
    if (fixedPitch || lower.startsWith("courier")) {
        f = QFont("Liberation Mono");
        f.setStyleHint(QFont::TypeWriter);
    } else if (lower.isEmpty() || lower == "ms sans serif" || lower == "ms shell dlg" || lower == "system") {
        f = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        pt *= SansScale();
    } else if (lower == "arial") {
        f = QFont("Liberation Sans");
    } else if (lower == "times new roman") {
        f = QFont("Liberation Serif");
    } else {
        f = QFont(n);
    }
    f.setPointSizeF(pt);
    f.setBold(bold);
    return f;
}

FormView::FormView(QtHost& host, forms::Form& form) : host_(host), form_(&form), content_(new QWidget(this)) {
    setObjectName(ToQString(form.Name()));
    setCentralWidget(content_);
    content_->installEventFilter(this);   // clicks on the form itself
    setWindowTitle(ToQString(form.Caption()));
    ApplyFormColors();

    // Containers first exist, then everything takes its place in them.
    for (Control* c : form.Controls()) {
        if (c->kind() == Kind::Menu) {
            hasMenus_ = true;
            continue;
        }
        items_[c].widget = Make(*c);
    }
    {
        Applying a(applying_);
        for (Control* c : form.Controls())
            if (c->kind() != Kind::Menu) ApplyAll(*c);
        // A tab strip lies under the frames the program places on it.
        for (Control* c : form.Controls())
            if (c->kind() == Kind::TabStrip) items_[c].widget->lower();
    }
    if (hasMenus_) RebuildMenus();
    form.SetObserver(this);
}

FormView::~FormView() { Detach(); }

void FormView::Detach() {
    if (!form_) return;
    if (form_->Observer() == static_cast<forms::FormObserver*>(this)) form_->SetObserver(nullptr);
    form_ = nullptr;
    for (auto& [part, c] : owners_) const_cast<QObject*>(part)->removeEventFilter(this);
    content_->removeEventFilter(this);
    owners_.clear();
    items_.clear();
}

void FormView::ShowWindow(bool modal) {
    if (isVisible() && (windowModality() == Qt::ApplicationModal) != modal) hide();
    setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    if (!shownOnce_) ApplyFormGeometry();
    shownOnce_ = true;
    show();
    raise();
    activateWindow();
}

void FormView::SyncFocus() {
    if (form_) FocusChanged(form_->ActiveControl());
}

QWidget* FormView::WidgetOf(const Control& c) const {
    auto it = items_.find(&c);
    return it == items_.end() ? nullptr : it->second.widget;
}

QAction* FormView::ActionOf(const Control& c) const {
    auto it = items_.find(&c);
    return it == items_.end() ? nullptr : it->second.action;
}

Control* FormView::ControlOf(const QObject* o) const {
    auto it = owners_.find(o);
    return it == owners_.end() ? nullptr : it->second;
}

void FormView::Own(QObject* part, Control& c) {
    owners_[part] = &c;
    part->installEventFilter(this);
}

void FormView::Act(const QObject* part, const std::function<void(Control&)>& f, bool resync) {
    if (applying_ || !form_) return;
    Control* c = ControlOf(part);
    if (!c) return;
    host_.Call([&] { f(*c); });
    if (resync) Resync(part);
}

void FormView::Clicked(const QObject* button) {
    // A click of the mouse reaches the model from the release, in the runtime's order.
    if (releasing_ && ControlOf(button) == releasing_) {
        releaseClicked_ = true;
        return;
    }
    Act(button, [](Control& ctl) { ctl.UserKeyClick(); });
}

void FormView::Resync(const QObject* part) {
    if (!form_) return;
    Control* c = ControlOf(part);   // the handler may have unloaded it
    if (!c) return;
    QWidget* w = WidgetOf(*c);
    if (!w) return;
    Applying a(applying_);
    ApplyValue(*c, w);
    ApplyListIndex(*c, w);
    ApplyTabs(*c, w);
    ApplyText(*c, w);
}

QWidget* FormView::Make(Control& c) {
    QWidget* w = nullptr;
    switch (c.kind()) {
    case Kind::TextBox:
        if (c.MultiLine) {
            auto* e = new QPlainTextEdit(content_);
            e->setTabChangesFocus(true);
            // A fixed-pitch box shows columns: a long line must not wrap into the next.
            if (c.FixedPitch) {
                e->setLineWrapMode(QPlainTextEdit::NoWrap);
                e->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
            }
            connect(e, &QPlainTextEdit::textChanged, e, [this, e] {
                Act(e, [e](Control& ctl) {
                    QString t = e->toPlainText();
                    ctl.UserTyped(FromPlain(t), ModelPos(t, e->textCursor().position()));
                });
            });
            connect(e, &QPlainTextEdit::cursorPositionChanged, e, [this, e] {
                Act(e, [e](Control& ctl) {
                    QTextCursor cur = e->textCursor();
                    QString t = e->toPlainText();
                    int s = ModelPos(t, cur.selectionStart()), end = ModelPos(t, cur.selectionEnd());
                    ctl.UserSelect(s, end - s);
                }, false);
            });
            Own(e->viewport(), c);
            w = e;
        } else {
            auto* e = new QLineEdit(content_);
            e->setFrame(true);
            connect(e, &QLineEdit::textEdited, e, [this, e](const QString& t) {
                Act(e, [&](Control& ctl) { ctl.UserTyped(FromQString(t), e->cursorPosition()); });
            });
            auto select = [this, e] { Act(e, [e](Control& ctl) { UserCaret(e, ctl); }, false); };
            connect(e, &QLineEdit::cursorPositionChanged, e, select);
            connect(e, &QLineEdit::selectionChanged, e, select);
            w = e;
        }
        break;
    case Kind::Label: {
        auto* l = new QLabel(content_);
        l->setTextFormat(Qt::PlainText);
        l->setWordWrap(true);
        w = l;
        break;
    }
    case Kind::CommandButton: {
        auto* b = new QPushButton(content_);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, b, [this, b] { Clicked(b); });
        w = b;
        break;
    }
    case Kind::CheckBox: {
        auto* b = new QCheckBox(content_);
        connect(b, &QCheckBox::clicked, b, [this, b] { Clicked(b); });
        w = b;
        break;
    }
    case Kind::OptionButton: {
        auto* b = new QRadioButton(content_);
        // The model turns the other options of the container off.
        b->setAutoExclusive(false);
        connect(b, &QRadioButton::clicked, b, [this, b] { Clicked(b); });
        w = b;
        break;
    }
    case Kind::ComboBox: {
        auto* cb = new QComboBox(content_);
        cb->setEditable(true);
        cb->setInsertPolicy(QComboBox::NoInsert);
        // Type-ahead is the program's own (KeyPress handlers); Qt's completion would fight it.
        cb->setCompleter(nullptr);
        QLineEdit* e = cb->lineEdit();
        connect(cb, &QComboBox::activated, cb, [this, cb](int i) {
            Act(cb, [i](Control& ctl) { ctl.UserListIndex(i); });
        });
        connect(e, &QLineEdit::textEdited, e, [this, e](const QString& t) {
            Act(e, [&](Control& ctl) { ctl.UserTyped(FromQString(t), e->cursorPosition()); });
        });
        auto select = [this, e] { Act(e, [e](Control& ctl) { UserCaret(e, ctl); }, false); };
        connect(e, &QLineEdit::cursorPositionChanged, e, select);
        connect(e, &QLineEdit::selectionChanged, e, select);
        Own(e, c);
        w = cb;
        break;
    }
    case Kind::ListBox: {
        auto* l = new QListWidget(content_);
        connect(l, &QListWidget::currentRowChanged, l, [this, l](int row) {
            Act(l, [row](Control& ctl) { ctl.UserListIndex(row); });
        });
        Own(l->viewport(), c);
        w = l;
        break;
    }
    case Kind::Frame: w = new QGroupBox(content_); break;
    case Kind::HScrollBar:
    case Kind::VScrollBar: {
        auto* s = new QScrollBar(c.kind() == Kind::VScrollBar ? Qt::Vertical : Qt::Horizontal, content_);
        // Change when the thumb is let go, not for every step of a drag.
        s->setTracking(false);
        connect(s, &QScrollBar::valueChanged, s, [this, s](int v) { Act(s, [v](Control& ctl) { ctl.SetValue(v); }); });
        w = s;
        break;
    }
    case Kind::TabStrip: {
        auto* strip = new QWidget(content_);
        auto* panel = new QFrame(strip);
        panel->setObjectName("panel");
        panel->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
        auto* bar = new QTabBar(strip);
        bar->setFocusPolicy(Qt::NoFocus);
        bar->setDrawBase(false);
        bar->setExpanding(false);
        connect(bar, &QTabBar::currentChanged, bar, [this, bar](int i) {
            Act(bar, [i](Control& ctl) { ctl.SetSelectedTab(i + 1); });
        });
        Own(bar, c);
        w = strip;
        break;
    }
    case Kind::PictureBox: {
        auto* p = new QLabel(content_);
        p->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        p->setAutoFillBackground(true);
        w = p;
        break;
    }
    case Kind::Menu: return nullptr;
    }
    w->setObjectName(ObjectName(c));
    w->setFocusPolicy(Focusable(c.kind()) ? Qt::StrongFocus : Qt::NoFocus);
    Own(w, c);
    return w;
}

void FormView::ApplyAll(const Control& c) {
    QWidget* w = WidgetOf(c);
    if (!w) return;
    // The font first: a button's caption wraps by it.
    w->setFont(FontFor(c.FontName(), c.FontSize(), c.FontBold(), c.FixedPitch));
    ApplyFields(c, w);
    ApplyGeometry(c, w);
    ApplyCaption(c, w);
    ApplyList(c, w);
    ApplyTabs(c, w);
    ApplyValue(c, w);
    ApplyText(c, w);
    ApplyColors(c, w);
    ApplyPicture(c, w);
    w->setToolTip(ToQString(c.ToolTipText()));
    w->setEnabled(c.Enabled());
    w->setVisible(c.Visible());
}

void FormView::Apply(const Control& c, Prop p) {
    QWidget* w = WidgetOf(c);
    if (!w) return;
    ApplyFields(c, w);
    switch (p) {
    case Prop::Text: ApplyText(c, w); break;
    case Prop::Selection: ApplySelection(c, w); break;
    case Prop::Caption: ApplyCaption(c, w); break;
    case Prop::Value: ApplyValue(c, w); break;
    case Prop::Visible: w->setVisible(c.Visible()); break;
    case Prop::Enabled: w->setEnabled(c.Enabled()); break;
    case Prop::Colors: ApplyColors(c, w); break;
    case Prop::Font:
        w->setFont(FontFor(c.FontName(), c.FontSize(), c.FontBold(), c.FixedPitch));
        if (c.kind() == Kind::CommandButton) ApplyCaption(c, w);
        break;
    case Prop::Geometry: ApplyGeometry(c, w); break;
    case Prop::List: ApplyList(c, w); break;
    case Prop::ListIndex: ApplyListIndex(c, w); break;
    case Prop::ToolTip: w->setToolTip(ToQString(c.ToolTipText())); break;
    case Prop::Picture: ApplyPicture(c, w); break;
    case Prop::Tabs: ApplyTabs(c, w); break;
    case Prop::Checked:
    case Prop::Fields: break;   // taken up above
    }
}

// Fields of the model that are plain members and send no notice: taken up
// whenever the control changes.
void FormView::ApplyFields(const Control& c, QWidget* w) {
    Qt::Alignment h = c.Alignment == 1 ? Qt::AlignRight : c.Alignment == 2 ? Qt::AlignHCenter : Qt::AlignLeft;
    if (QLineEdit* e = LineEditOf(w)) {
        e->setReadOnly(c.Locked);
        // Setting the limit sets the text anew, which drops the selection and
        // puts the caret at the end: only when it changes, and the model's
        // selection is put back.
        if (const int limit = c.MaxLength > 0 ? c.MaxLength : 32767; e->maxLength() != limit) {
            QSignalBlocker b(e);
            e->setMaxLength(limit);
            if (c.kind() == Kind::TextBox || c.kind() == Kind::ComboBox) ApplySelection(c, w);
        }
        e->setAlignment(h | Qt::AlignVCenter);
    } else if (auto* pe = qobject_cast<QPlainTextEdit*>(w)) {
        pe->setReadOnly(c.Locked);
    } else if (auto* s = qobject_cast<QScrollBar*>(w)) {
        QSignalBlocker b(s);
        s->setInvertedAppearance(c.Min > c.Max);
        s->setRange(std::min(c.Min, c.Max), std::max(c.Min, c.Max));
        s->setSingleStep(c.SmallChange);
        s->setPageStep(c.LargeChange);
    } else if (c.kind() == Kind::Label) {
        static_cast<QLabel*>(w)->setAlignment(h | Qt::AlignTop);
    }
}

void FormView::ApplyGeometry(const Control& c, QWidget* w) {
    QWidget* parent = content_;
    if (Control* k = c.Container(); k && (k->kind() == Kind::Frame || k->kind() == Kind::PictureBox))
        if (QWidget* kw = WidgetOf(*k)) parent = kw;
    if (w->parentWidget() != parent) {
        w->setParent(parent);   // hides it
        w->setVisible(c.Visible());
    }
    w->setGeometry(Px(c.Left()), Px(c.Top()), std::max(0, Px(c.Width())), std::max(0, Px(c.Height())));
    switch (c.kind()) {
    case Kind::CommandButton: ApplyCaption(c, w); ApplyPicture(c, w); break;
    case Kind::PictureBox: ApplyPicture(c, w); break;
    case Kind::TabStrip: LayoutTabStrip(w); break;
    default: break;
    }
}

void FormView::ApplyText(const Control& c, QWidget* w) {
    if (c.kind() != Kind::TextBox && c.kind() != Kind::ComboBox) return;
    // Set only what differs, so the caret stays where the operator has it.
    if (auto* e = qobject_cast<QPlainTextEdit*>(w)) {
        QString t = ToPlain(c.Text());
        if (e->toPlainText() == t) return;
        QSignalBlocker b(e);
        e->setPlainText(t);
        ApplySelection(c, w);
        return;
    }
    QLineEdit* e = LineEditOf(w);
    if (!e) return;
    QString t = ToQString(c.Text());
    if (e->text() == t) return;
    QSignalBlocker b(e);
    e->setText(t);
    ApplySelection(c, w);
}

void FormView::ApplySelection(const Control& c, QWidget* w) {
    if (auto* e = qobject_cast<QPlainTextEdit*>(w)) {
        QSignalBlocker b(e);
        QTextCursor cur = e->textCursor();
        cur.setPosition(PlainPos(c.Text(), c.SelStart()));
        if (c.SelLength() > 0)
            cur.setPosition(PlainPos(c.Text(), c.SelStart() + c.SelLength()), QTextCursor::KeepAnchor);
        e->setTextCursor(cur);
        return;
    }
    QLineEdit* e = LineEditOf(w);
    if (!e) return;
    QSignalBlocker b(e);
    if (c.SelLength() > 0) e->setSelection(c.SelStart(), c.SelLength());
    else e->setCursorPosition(c.SelStart());
}

void FormView::ApplyCaption(const Control& c, QWidget* w) {
    QString cap = ToQString(c.Caption());
    switch (c.kind()) {
    case Kind::Label: static_cast<QLabel*>(w)->setText(StripMnemonic(cap)); break;
    case Kind::CommandButton: static_cast<QPushButton*>(w)->setText(WrapCaption(cap, w->font(), w->width())); break;
    case Kind::CheckBox:
    case Kind::OptionButton: static_cast<QAbstractButton*>(w)->setText(cap); break;
    case Kind::Frame: static_cast<QGroupBox*>(w)->setTitle(cap); break;
    default: break;
    }
}

void FormView::ApplyValue(const Control& c, QWidget* w) {
    QSignalBlocker b(w);
    switch (c.kind()) {
    case Kind::CheckBox: {
        auto* box = static_cast<QCheckBox*>(w);
        if (c.Value() == forms::vbGrayed) box->setTristate(true);
        box->setCheckState(c.Value() == forms::vbChecked  ? Qt::Checked
                           : c.Value() == forms::vbGrayed ? Qt::PartiallyChecked
                                                          : Qt::Unchecked);
        break;
    }
    case Kind::OptionButton: static_cast<QRadioButton*>(w)->setChecked(c.Value() != 0); break;
    case Kind::HScrollBar:
    case Kind::VScrollBar: static_cast<QScrollBar*>(w)->setValue(c.Value()); break;
    default: break;
    }
}

void FormView::ApplyColors(const Control& c, QWidget* w) {
    QPalette pal = QApplication::palette(w);
    QColor back = ColorOf(c.BackColor()), fore = ColorOf(c.ForeColor());
    auto text = [&pal](QPalette::ColorRole role, const QColor& col) {
        // Disabled text keeps the desktop's grey.
        pal.setColor(QPalette::Active, role, col);
        pal.setColor(QPalette::Inactive, role, col);
    };
    switch (c.kind()) {
    case Kind::TextBox:
    case Kind::ComboBox:
    case Kind::ListBox:
        pal.setColor(QPalette::Base, back);
        text(QPalette::Text, fore);
        break;
    case Kind::CommandButton:
        pal.setColor(QPalette::Button, back);
        text(QPalette::ButtonText, fore);
        break;
    case Kind::Label:
    case Kind::CheckBox:
    case Kind::OptionButton:
    case Kind::Frame:
    case Kind::PictureBox:
        pal.setColor(QPalette::Window, back);
        text(QPalette::WindowText, fore);
        // The form shows through a control of the default face.
        w->setAutoFillBackground(c.kind() == Kind::PictureBox || c.BackColor() != forms::vbButtonFace);
        break;
    default: return;
    }
    w->setPalette(pal);
}

void FormView::ApplyList(const Control& c, QWidget* w) {
    QStringList items;
    for (const std::string& s : c.List()) items << ToQString(s);
    if (auto* cb = qobject_cast<QComboBox*>(w)) {
        QSignalBlocker b(cb), be(cb->lineEdit());
        cb->clear();
        cb->addItems(items);
        // Adding items picks the first; the model says what is picked and shown.
        cb->setCurrentIndex(c.ListIndex());
        cb->lineEdit()->setText(ToQString(c.Text()));
    } else if (auto* l = qobject_cast<QListWidget*>(w)) {
        QSignalBlocker b(l);
        l->clear();
        l->addItems(items);
        l->setCurrentRow(c.ListIndex());
    }
}

void FormView::ApplyListIndex(const Control& c, QWidget* w) {
    if (auto* cb = qobject_cast<QComboBox*>(w)) {
        if (cb->currentIndex() == c.ListIndex()) return;
        QSignalBlocker b(cb), be(cb->lineEdit());
        cb->setCurrentIndex(c.ListIndex());
        cb->lineEdit()->setText(ToQString(c.Text()));
    } else if (auto* l = qobject_cast<QListWidget*>(w)) {
        if (l->currentRow() == c.ListIndex()) return;
        QSignalBlocker b(l);
        l->setCurrentRow(c.ListIndex());
        if (c.ListIndex() < 0) l->clearSelection();
    }
}

void FormView::ApplyTabs(const Control& c, QWidget* w) {
    if (c.kind() != Kind::TabStrip) return;
    auto* bar = w->findChild<QTabBar*>();
    if (!bar) return;
    QSignalBlocker b(bar);
    const auto& tabs = c.Tabs();
    bool same = bar->count() == static_cast<int>(tabs.size());
    for (int i = 0; same && i < bar->count(); ++i) same = bar->tabText(i) == ToQString(tabs[i]);
    if (!same) {
        while (bar->count() > 0) bar->removeTab(0);
        for (const std::string& t : tabs) bar->addTab(ToQString(t));
    }
    bar->setCurrentIndex(c.SelectedTab() - 1);
    LayoutTabStrip(w);
}

QString FormView::PicturePath(const std::string& name) const {
    if (name.empty()) return {};
    QString base = host_.Resources() + "/pictures/" + ToQString(name);
    for (const char* ext : {".svg", ".png", ""})
        if (QFileInfo::exists(base + ext) && QFileInfo(base + ext).isFile()) return base + ext;
    return {};
}

void FormView::ApplyPicture(const Control& c, QWidget* w) {
    if (c.kind() != Kind::CommandButton && c.kind() != Kind::PictureBox) return;
    QString path = PicturePath(c.Picture());
    QIcon icon = path.isEmpty() ? QIcon() : QIcon(path);
    if (auto* b = qobject_cast<QPushButton*>(w)) {
        b->setIcon(icon);
        int room = std::max(8, std::min(w->width(), w->height()) - 8);
        int side = c.Caption().empty() ? room : std::min(24, room);
        b->setIconSize(QSize(side, side));
    } else if (auto* l = qobject_cast<QLabel*>(w)) {
        // Never larger than the box; an image smaller than it keeps its size.
        l->setPixmap(icon.isNull() ? QPixmap() : icon.pixmap(w->size()));
    }
}

void FormView::ApplyFormGeometry() {
    if (!form_) return;
    const int menuH = hasMenus_ ? menuBar()->sizeHint().height() : 0;
    const int outerW = Px(form_->Width()), outerH = Px(form_->Height());
    // The controls decide when the border allowance was more than the form had.
    int extentW = 0, extentH = 0;
    for (auto& [c, item] : items_)
        if (item.widget && item.widget->parentWidget() == content_ && c->Visible()) {
            extentW = std::max(extentW, item.widget->geometry().right() + 1);
            extentH = std::max(extentH, item.widget->geometry().bottom() + 1);
        }
    int w = std::max(outerW - kFrameWidth, std::min(extentW + 4, outerW));
    int h = std::max(outerH - kFrameHeight - menuH, std::min(extentH + 4, outerH - menuH));
    w = std::max(w, 120);
    h = std::max(h, 40);
    content_->setMinimumSize(w, h);
    resize(w, h + menuH);
    if (form_->Left() == 0 && form_->Top() == 0) {
        // A form placed nowhere opens in the middle of the screen.
        if (QScreen* s = QGuiApplication::primaryScreen()) {
            QRect a = s->availableGeometry();
            move(a.x() + (a.width() - w) / 2, a.y() + (a.height() - h - menuH) / 2);
        }
    } else {
        move(Px(form_->Left()), Px(form_->Top()));
    }
}

void FormView::ApplyFormColors() {
    if (!form_) return;
    QPalette pal = QApplication::palette(content_);
    pal.setColor(QPalette::Window, ColorOf(form_->BackColor()));
    content_->setPalette(pal);
    content_->setAutoFillBackground(true);
}

void FormView::ControlChanged(Control& c, Prop p) {
    if (!form_) return;
    Applying a(applying_);
    if (c.kind() == Kind::Menu) {
        if (p == Prop::Geometry) ScheduleMenuRebuild();
        else UpdateAction(c);
        return;
    }
    Apply(c, p);
}

void FormView::ControlAdded(Control& c) {
    if (!form_) return;
    Applying a(applying_);
    if (c.kind() == Kind::Menu) {
        hasMenus_ = true;
        ScheduleMenuRebuild();
        return;
    }
    items_[&c].widget = Make(c);
    ApplyAll(c);
}

void FormView::ControlRemoved(Control& c) {
    if (!form_) return;
    if (mouseFocus_ == &c) mouseFocus_ = nullptr;
    auto it = items_.find(&c);
    if (it == items_.end()) return;
    Item item = it->second;
    items_.erase(it);
    for (auto o = owners_.begin(); o != owners_.end();) {
        if (o->second == &c) {
            const_cast<QObject*>(o->first)->removeEventFilter(this);
            o = owners_.erase(o);
        } else {
            ++o;
        }
    }
    if (c.kind() == Kind::Menu) {
        ScheduleMenuRebuild();
        return;
    }
    if (!item.widget) return;
    Applying a(applying_);
    // What stood in a container that goes stays on the form.
    for (auto& [k, other] : items_)
        if (other.widget && other.widget->parentWidget() == item.widget) {
            other.widget->setParent(content_);
            other.widget->setVisible(k->Visible());
        }
    item.widget->hide();
    // It may be the widget whose signal is running now.
    item.widget->deleteLater();
}

void FormView::FocusChanged(Control* c) {
    if (!form_ || !c) return;
    QWidget* w = WidgetOf(*c);
    if (!w) return;
    focusing_ = true;
    w->setFocus(Qt::OtherFocusReason);
    focusing_ = false;
}

void FormView::FormChanged(Prop p) {
    if (!form_) return;
    switch (p) {
    case Prop::Caption: setWindowTitle(ToQString(form_->Caption())); break;
    case Prop::Geometry:
        if (shownOnce_) ApplyFormGeometry();
        break;
    case Prop::Colors: ApplyFormColors(); break;
    default: break;
    }
}
