#pragma once

namespace zorvo {

/// What the lower floors may do with the main form: the shell answers.
class MainFormGate {
public:
    virtual ~MainFormGate() = default;
    /// Loads the main form, hidden, when it isn't there.
    virtual bool isEnabled() = 0;
    virtual void setEnabled(bool bEnabled) = 0;
};

/// Null until the shell installs one; then busy work locks no window.
MainFormGate*& mainFormGate();

} // namespace zorvo
