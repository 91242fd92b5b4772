#pragma once

#include "window/Form.h"

namespace zorvo {

/// The instance of a form that the program reaches by the form's own name. Touching it loads it; after its
/// unload the next touch makes a new one.
template <typename FormType>
class DefaultInstance {
public:
    /// The loaded form, made and loaded when it isn't there.
    FormType& get()
    {
        if (form_ && !form_->isFormLoaded() && !bLoading_)
            drop();
        if (!form_)
            form_ = new FormType;
        if (!form_->isFormLoaded() && !bLoading_) {
            bLoading_ = true;
            try {
                form_->load();
            } catch (...) {
                bLoading_ = false;
                drop();
                throw;
            }
            bLoading_ = false;
        }
        return *form_;
    }

    /// The form if it is loaded or loading, else null. Loads nothing.
    FormType* ifLoaded() const { return form_ && (form_->isFormLoaded() || bLoading_) ? form_ : nullptr; }

    void unload()
    {
        if (form_ && form_->isFormLoaded())
            form_->unload();
        drop();
    }

private:
    void drop()
    {
        if (form_)
            form_->deleteLater();
        form_ = nullptr;
    }

    FormType* form_ = nullptr;
    bool bLoading_ = false;
};

} // namespace zorvo
