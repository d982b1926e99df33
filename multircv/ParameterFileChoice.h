#pragma once

#include "plugin/interface/SSettings.h"

#include <QString>

#include <vector>

// What follows when the user picks a parameter file from anywhere on the disk: it may be unfit, the library may hold
// it already, or another of its name, or it is new there. [GUI thread]
class ParameterFileChoice
{
public:
    enum class Kind
    {
        Unfit,       // no type file, or one of a cabinet with several receiving cards
        SameContent, // the library's file has the content: the user is asked whether to use that one
        SameName,    // the library's file has the name: the user is asked whether to replace it
        New,
    };

    // Asks the host and the type library about the file. `libraryFolder` is the library's root folder.
    ParameterFileChoice(const QString& file, const QString& libraryFolder);

    Kind kind() const { return m_kind; }

    // Makes the file one of the library's, for which a file of the same name is replaced; the path of the library's
    // file. Nobody is told when copying fails: the path may then lead to no file.
    QString take() const;

private:
    const QString m_file;
    const QString m_target; // where a copy of a new file goes
    QString m_libraryFile;  // of the same content or name
    Kind m_kind = Kind::New;
};

// Path of the first single-receiver type in tree order with this digest; empty if there is none, or the digest is
// empty. A multi-receiver type is never found, even when its file is an unaltered copy.
QString parameterFileWithDigest(const std::vector<SSettings::TypeLibrary::STreeNode>& tree, const SMD5& md5);
