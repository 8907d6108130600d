#include "support/RecordingSurface.h"

#include "platform/vb/Error.h"

RecordingSurface::Op RecordingSurface::Make(OpKind kind) const {
    Op op;
    op.kind = kind;
    op.doc = static_cast<int>(docPages_.size()) - (open_ ? 1 : 0);
    op.page = page_;
    op.font = font_;
    return op;
}

// A document starts with the first call that puts something on paper.
void RecordingSurface::Ink() {
    if (!open_) {
        open_ = true;
        docPages_.push_back(1);
    }
    docPages_.back() = page_;
}

// The pen and the page counter start over for the next document; the font stays.
void RecordingSurface::Close() {
    open_ = false;
    page_ = 1;
    x_ = y_ = 0;
    docStart_ = ops.size();
}

void RecordingSurface::MoveTo(float x, float y) {
    x_ = x;
    y_ = y;
    ops.push_back(Make(OpKind::Move));
    ops.back().x = x_;
    ops.back().y = y_;
}

void RecordingSurface::SetCurrentX(float x) { MoveTo(x, y_); }
void RecordingSurface::SetCurrentY(float y) { MoveTo(x_, y); }

void RecordingSurface::Record(OpKind kind, int value) {
    ops.push_back(Make(kind));
    ops.back().value = value;
}

void RecordingSurface::SetFont(const host::PrintFont& f) {
    font_ = f;
    ops.push_back(Make(OpKind::Font));
}

void RecordingSurface::SetScaleMode(int mode) { Record(OpKind::ScaleMode, mode); }

void RecordingSurface::SetDrawWidth(int w) {
    drawWidth_ = w;
    Record(OpKind::DrawWidth, w);
}

void RecordingSurface::Line(float x1, float y1, float x2, float y2) {
    Ink();
    Record(OpKind::Line, drawWidth_);
    Op& op = ops.back();
    op.x = x1, op.y = y1, op.x2 = x2, op.y2 = y2;
    // The runtime leaves the pen at the end of a line.
    x_ = x2;
    y_ = y2;
}

float RecordingSurface::TextWidth(const std::string& text) {
    return CharWidthPerPoint * font_.Size * static_cast<float>(text.size());
}

void RecordingSurface::Print(const std::string& text, bool stayOnLine) {
    Ink();
    ops.push_back(Make(OpKind::Text));
    Op& op = ops.back();
    op.x = x_, op.y = y_, op.text = text;
    if (stayOnLine) {
        x_ += TextWidth(text);
    } else {
        x_ = 0;
        y_ += LineHeight();
    }
}

// A NewPage on no document opens one, so its first page stays blank.
void RecordingSurface::NewPage() {
    if (refuseNewPage) throw vb::RuntimeError(482, "Printer error");
    if (!open_) Ink();
    ops.push_back(Make(OpKind::NewPage));
    ++page_;
    x_ = y_ = 0;
}

void RecordingSurface::EndDoc() {
    ops.push_back(Make(OpKind::EndDoc));
    if (!open_) return;
    ++endDocs;
    Close();
}

void RecordingSurface::KillDoc() {
    ++killDocs;
    if (open_) docPages_.pop_back();
    open_ = false;
    ops.erase(ops.begin() + static_cast<std::ptrdiff_t>(docStart_), ops.end());
    ops.push_back(Make(OpKind::KillDoc));
    Close();
}

int RecordingSurface::PagesPrinted() const {
    int pages = 0;
    for (int p : docPages_) pages += p;
    return pages;
}

std::vector<const RecordingSurface::Op*> RecordingSurface::OfKind(OpKind kind) const {
    std::vector<const Op*> out;
    for (const Op& op : ops)
        if (op.kind == kind) out.push_back(&op);
    return out;
}

std::vector<std::string> RecordingSurface::Texts() const {
    std::vector<std::string> out;
    for (const Op* op : TextOps()) out.push_back(op->text);
    return out;
}

std::vector<std::string> RecordingSurface::TextsOnPage(int page, int doc) const {
    std::vector<std::string> out;
    for (const Op* op : TextOps())
        if (op->page == page && op->doc == doc) out.push_back(op->text);
    return out;
}

const RecordingSurface::Op* RecordingSurface::FindText(const std::string& text) const {
    const Op* containing = nullptr;
    for (const Op* op : TextOps()) {
        if (op->text == text) return op;
        if (!containing && op->text.find(text) != std::string::npos) containing = op;
    }
    return containing;
}
