#include "tests/support/containers.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile-zip.h>
#include <gsf/gsf-output-memory.h>

namespace {

using MakeContainer = GsfOutfile *(*)(GsfOutput *memory);

GsfOutfile *archive(GsfOutput *memory)
{
    return gsf_outfile_zip_new(memory, nullptr);
}

QByteArray written(const Parts &parts, MakeContainer container)
{
    GsfOutput *memory = gsf_output_memory_new();
    GsfOutfile *folder = container(memory);
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        GsfOutput *output = gsf_outfile_new_child(folder, part.key().toUtf8().constData(), FALSE);
        gsf_output_write(output, size_t(part->size()), reinterpret_cast<const guint8 *>(part->constData()));
        gsf_output_close(output);
        g_object_unref(output);
    }
    gsf_output_close(GSF_OUTPUT(folder));
    const auto *bytes = reinterpret_cast<const char *>(gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(memory)));
    const QByteArray content(bytes, qsizetype(gsf_output_size(memory)));
    g_object_unref(folder);
    g_object_unref(memory);
    return content;
}

} // namespace

QByteArray zipped(const Parts &parts)
{
    return written(parts, archive);
}

QByteArray compound(const Parts &streams)
{
    return written(streams, gsf_outfile_msole_new);
}

Parts xlsxParts(const QByteArray &sheetData, const QByteArray &styles, const QByteArray &strings)
{
    const auto relation = [](const char *id, const char *type, const char *target) {
        return QByteArray("<Relationship Id=\"") + id + "\" Type=\"r/" + type + "\" Target=\"" + target + "\"/>";
    };
    Parts parts{{"_rels/.rels", "<Relationships>" + relation("r1", "officeDocument", "b.xml") + "</Relationships>"},
                {"b.xml", "<workbook xmlns:r=\"r\"><sheets><sheet r:id=\"s1\"/></sheets></workbook>"},
                {"s.xml", "<worksheet><sheetData>" + sheetData + "</sheetData></worksheet>"}};
    QByteArray relations = relation("s1", "worksheet", "s.xml");
    if (!styles.isEmpty()) {
        relations += relation("y1", "styles", "y.xml");
        parts["y.xml"] = "<styleSheet>" + styles + "</styleSheet>";
    }
    if (!strings.isEmpty()) {
        relations += relation("t1", "sharedStrings", "t.xml");
        parts["t.xml"] = "<sst>" + strings + "</sst>";
    }
    parts["_rels/b.xml.rels"] = "<Relationships>" + relations + "</Relationships>";
    return parts;
}

Parts odsParts(const QByteArray &rows)
{
    return {{"content.xml", "<office:document-content xmlns:office=\"o\" xmlns:table=\"t\" xmlns:text=\"x\" "
                            "xmlns:calcext=\"c\"><office:body><office:spreadsheet><table:table>" +
                                rows + "</table:table></office:spreadsheet></office:body></office:document-content>"}};
}
