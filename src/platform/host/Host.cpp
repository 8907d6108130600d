#include "platform/host/Host.h"

#include "platform/forms/Form.h"

namespace host {

void Host::ActivateForm(forms::Form* f) {
    if (f == activeForm_) return;
    forms::Form* old = activeForm_;
    activeForm_ = f;
    if (old && old->Loaded()) old->Form_Deactivate();
    if (f && f->Loaded()) f->Form_Activate();
}

}  // namespace host
