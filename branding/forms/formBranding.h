#pragma once

class QLabel;

namespace zorvo {

class Form;

/// Icon and captions of another company than the default one; for that one nothing happens. Each form calls
/// it in its load event.
void ApplyFormBranding(Form& frm);

/// The form's caption and those of all its controls in the company's wording. A control without a caption,
/// and one whose caption can't be set, is passed over.
void RebrandFormCaptions(Form& frm);

/// Shows another company's icon and the form's caption where the session lists running programs: the icon of
/// all windows, and a launcher's name of the company's own, which is the program's with ".<company>" behind
/// it. `pic` is a picture box that takes the icon as well.
void SetTaskManagerPicture(Form& frm, QLabel* pic = nullptr);

} // namespace zorvo
