// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/file_type_map.h"

#include <QStringList>

namespace {

struct FileType
{
    const char *name;
    const char *extensions; // separated by single blanks
};

// In this order: the type of an extension that stands twice ("ac3") is that of its later row.
constexpr FileType FileTypes[] = {
    {"acc",
     "acc ade adp adn accdr accdb accdt mdb mda mdn mdt mdw mdf mde accde mam maq mar mat "
     "maf"},
    {"ai", "ai"},
    {"audio", "mp3 aac flac m4a m4b aif ogg pcm wav cda mid mp2 mka mpc ape ra ac3 dts wma"},
    {"bkpi", "bkpi"},
    {"doc", "doc docx wri rtf"},
    {"exe", "exe"},
    {"fla", "fla"},
    {"htm", "htm html"},
    {"idn", "idn"},
    {"image",
     "bmp ico tif tiff ufo raw arw srf sr2 dcr k25 kdc cr2 crw nef mrw ptx pef raf 3fr erf "
     "mef mos orf rw2 dng x3f jpg jpe jpeg png gif"},
    {"iso", "iso bin img mds nrg daa"},
    {"code",
     "js css actproj ad akp applescript as asax asc ascx asm asmx asp aspx asr c cc php "
     "jsx xml xhtml mhtml cpp cs cxx"},
    {"pdf", "pdf"},
    {"ppt", "ppt pptx pps ppsx"},
    {"psd", "psd"},
    {"swf", "swf flv f4v"},
    {"ttf", "ttf ttc otf"},
    {"txt", "txt"},
    {"video",
     "avi 3gp 3g2 asf dat divx dvr-ms m2t m2ts m4v mkv mp4 mts mov qt tp trp ts vob wmv "
     "xvid ac3 amr rm rmvb ifo mpeg mpg mpe m1v m2v mpeg1 mpeg2 mpeg4 ogv webm"},
    {"xls", "xls xla xlb xlc xld xlk xll xlm xlt xlv xlw xlsx xlsm xlsb xltm xlam"},
    {"zip", "zip tar 7z bz2 gz zip tgz tbz rar"},
};

} // namespace

std::map<QString, QString, CaseLessCompare> FileTypeMap::m_file_type_map;

bool CaseLessCompare::operator()(const QString &left, const QString &right) const
{
    return QString::compare(left, right, Qt::CaseInsensitive) < 0;
}

FileTypeMap::FileTypeMap()
{
    for (const FileType &type : FileTypes) {
        mappingFile(QString::fromLatin1(type.name), QString::fromLatin1(type.extensions));
    }
}

FileTypeMap *FileTypeMap::getInstance()
{
    static FileTypeMap instance;
    return &instance;
}

QString FileTypeMap::getFiletypeMapping(const QString &extension, bool removed)
{
    const auto entry = m_file_type_map.find(extension);
    const QString type = entry == m_file_type_map.end() ? QStringLiteral("xxx") : entry->second;
    return type + (removed ? QLatin1String("_removed.png") : QLatin1String(".png"));
}

void FileTypeMap::mappingFile(const QString &type, const QString &extensions)
{
    const QStringList keys = extensions.split(QLatin1Char(' '));
    for (const QString &key : keys) {
        m_file_type_map[key] = type;
    }
}
