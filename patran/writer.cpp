/// The exported writer, which hands its calls on.
#include <new>

#include "patran/pat_writer.h"
#include <kvocaeio/patran.h>

CKVO_PATWriter_Bridge::CKVO_PATWriter_Bridge()
    : writer(new (std::nothrow) kvocaeio::patran::CPATWriter) {}

CKVO_PATWriter_Bridge::CKVO_PATWriter_Bridge(const CKVO_PATWriter_Bridge&) = default;
CKVO_PATWriter_Bridge& CKVO_PATWriter_Bridge::operator=(const CKVO_PATWriter_Bridge&) = default;

CKVO_PATWriter_Bridge::~CKVO_PATWriter_Bridge() {
    delete writer;
}

void CKVO_PATWriter_Bridge::SetFilePath(const char* path) {
    if (writer != nullptr)
        writer->SetFilePath(path);
}

void CKVO_PATWriter_Bridge::SetNodeCount(int count) {
    if (writer != nullptr)
        writer->SetNodeCount(count);
}

void CKVO_PATWriter_Bridge::SetNodeArray() {
    if (writer != nullptr)
        writer->SetNodeArray();
}

void CKVO_PATWriter_Bridge::AddNode(int index, double x, double y, double z) {
    if (writer != nullptr)
        writer->AddNode(index, x, y, z);
}

void CKVO_PATWriter_Bridge::SetElemCount(int count) {
    if (writer != nullptr)
        writer->SetElemCount(count);
}

bool CKVO_PATWriter_Bridge::SetElemArray() {
    return writer != nullptr && writer->SetElemArray();
}

void CKVO_PATWriter_Bridge::AddElement(int index, int count, int* nodes) {
    if (writer != nullptr)
        writer->AddElement(index, count, nodes);
}

bool CKVO_PATWriter_Bridge::WriteFile() {
    return writer != nullptr && writer->WriteFile();
}
