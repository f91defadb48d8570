#pragma once

#include <QObject>
#include <QPointer>

class QAction;

namespace tallowmere {

class MultiLinks;
class RecorderBar;
struct RecordingState;
class frmMain;

/// Tells what a recording of a multi-link has so far and how it goes on: in a bar over the
/// lower edge of the panes, and on the links that cannot be recorded.
class RecordingGuide : public QObject {
    Q_OBJECT
public:
    RecordingGuide(frmMain& form, const RecordingState& recording, MultiLinks& multiLinks);

private:
    void Follow();
    void Begin();
    void End();

    frmMain& m_form;
    const RecordingState& m_recording;
    MultiLinks& m_multiLinks;
    QPointer<RecorderBar> m_bar;
    QAction* m_discard;
};

} // namespace tallowmere
