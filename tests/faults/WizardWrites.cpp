#include "host/typefile/TypeFile.h"
#include "multircv/CabinetTypeDraft.h"
#include "tests/faults/Contents.h"
#include "tests/faults/Write.h"
#include "tests/support/FileFixture.h"
#include "typelibrary/store/CTypeLibrary.h"

namespace {

QString cardOf(const WritePlace& place)
{
    return place.inSource(QStringLiteral("Card.rcvp"));
}

QString fileOf(const WritePlace& place, const QString& name)
{
    return place.inWork(name + QStringLiteral(".rcvbp"));
}

// The wizard's last step: what it has made differs from turn to turn. Whether it is there afterwards.
bool save(const WritePlace& place, const QString& name, const QString& editedFile, int turn)
{
    CabinetEdit edit;
    edit.grid = QSize(2, 1);
    edit.wiring = {0, 1};
    edit.typeName = name;
    edit.weight = turn % 2;
    CabinetTypeDraft(place.work, editedFile).save(cardOf(place), edit);
    QString error;
    const auto header = TypeFile::readHeader(fileOf(place, name), error);
    return header && header->cabinet && header->cabinet->weight == float(turn % 2) &&
           (editedFile.isEmpty() || editedFile == fileOf(place, name) || !QFileInfo::exists(editedFile));
}

// The type is a copy of the parameter file until its record is written.
std::function<QMap<QString, QByteArray>(const WritePlace&)> copiesNamed(const QStringList& names)
{
    return [names](const WritePlace& place) {
        QMap<QString, QByteArray> copies;
        for (const QString& name : names)
            copies.insert(name + QStringLiteral(".rcvbp"), readFile(cardOf(place)));
        return copies;
    };
}

QString inspectTypes(const WritePlace& place)
{
    CTypeLibrary::instance().setRootPath(place.work);
    QString problem;
    for (const auto& node : CTypeLibrary::instance().nodes())
        problem += problemOfTypeFile(node.path);
    return problem;
}

Write newTypeWrite()
{
    const QString name = QStringLiteral("Cab");
    Write write;
    write.name = "new type";
    write.isAtomic = false;
    write.prepare = [](const WritePlace& place) { writeTypeFile(cardOf(place), 0); };
    write.perform = [=](const WritePlace& place, int turn) { return save(place, name, {}, turn); };
    write.undo = takingAway({name + QStringLiteral(".rcvbp")});
    write.inspect = inspectTypes;
    write.stages = copiesNamed({name});
    return write;
}

Write editedTypeWrite()
{
    const QString name = QStringLiteral("Cab");
    Write write;
    write.name = "edited type";
    write.isAtomic = false;
    write.perform = [=](const WritePlace& place, int turn) { return save(place, name, fileOf(place, name), turn); };
    write.prepare = [=](const WritePlace& place) {
        writeTypeFile(cardOf(place), 0);
        save(place, name, {}, 1);
    };
    write.inspect = inspectTypes;
    write.stages = copiesNamed({name});
    return write;
}

Write renamedTypeWrite()
{
    const auto nameOf = [](int turn) { return QStringLiteral("Cab%1").arg(turn % 2); };
    Write write;
    write.name = "edited type under another name";
    write.mayLeaveOld = true;
    write.isAtomic = false;
    write.perform = [=](const WritePlace& place, int turn) {
        return save(place, nameOf(turn), fileOf(place, nameOf(turn + 1)), turn);
    };
    write.prepare = [=](const WritePlace& place) {
        writeTypeFile(cardOf(place), 0);
        save(place, nameOf(1), {}, 1);
    };
    write.inspect = [=](const WritePlace& place) {
        for (int turn : {0, 1}) {
            QString error;
            const auto header = TypeFile::readHeader(fileOf(place, nameOf(turn)), error);
            if (header && header->cabinet)
                return inspectTypes(place);
        }
        return QStringLiteral("The record is lost");
    };
    write.stages = copiesNamed({nameOf(0), nameOf(1)});
    return write;
}

} // namespace

QList<Write> wizardWrites()
{
    return {newTypeWrite(), editedTypeWrite(), renamedTypeWrite()};
}
