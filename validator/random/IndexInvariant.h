#pragma once

#include "validator/random/LibraryInvariant.h"

#include <QString>
#include <QStringList>

class QAbstractButton;
struct Scene;

// Whether the settings area finds the types of the library by their content and by their name. No operation shows the
// index that it looks into, so it is asked as a user asks it: by an import of files that it must refuse for a type they
// share their content or their name with, and of one that it must take. [GUI thread]
class IndexInvariant
{
public:
    explicit IndexInvariant(Scene& scene);

    // Whether files can be imported now: there is a library with a window, nothing is open above it, no name is being
    // edited, and the entry that stands for the target is still there.
    bool canBeAsked() const;

    // The first wrong answer, in words; empty when there is none. `nodes` is the library as it is, which gets one type
    // more. Comes back when every dialog has been answered: answer() must be called meanwhile.
    QString difference(const LibraryInvariant::Nodes& nodes);

    // Whether difference() is waiting for answers.
    bool isAsking() const { return m_bAsking; }

    // Answers the dialog that is open, if one is.
    void answer();

private:
    QAbstractButton* button() const;
    void writeTwins(const LibraryInvariant::Nodes& nodes);
    void add(const QString& name, const QByteArray& text);

    Scene& m_scene;
    const QString m_folder; // what is to be imported lies here
    QStringList m_files;
    bool m_bAsking = false;
    bool m_bChosen = false; // in the file dialog
};
