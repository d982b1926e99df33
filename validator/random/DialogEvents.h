#pragma once

class QFileDialog;
class QString;
class Random;
struct Scene;

// Answers to file dialogs. Those are the one place that random keys and clicks stay away from: a user can delete and
// rename files in them, and they reach every folder of the machine. [GUI thread]
class DialogEvents
{
public:
    // Whether a file dialog waits for an answer.
    static bool isWanted();

    // Chooses files or a folder of the scene's, or cancels.
    static void answer(Scene& scene, Random& random);

    // Chooses the path, or several in quotes, and closes the dialog soon.
    static void choose(QFileDialog& dialog, const QString& choice);
};
