// SPDX-License-Identifier: MIT
#include "stavfile/StfFile.h"

#include "host/GameFiles.h"
#include "host/OutOfMemory.h"
#include "host/Text.h"
#include "stavfile/Node.h"
#include "stavfile/Writer.h"

#include <algorithm>

using host::ErrorNumber;
using host::RuntimeError;
using stavfile::Node;

StfFile::StfFile(host::GameFiles &files)
    : m_files(files)
    , m_root(Node::Created())
{
}

StfFile StfFile::Read(host::GameFiles &files, std::string path)
{
    StfFile file(files);
    file.SetFileName(std::move(path));
    file.Load();
    return file;
}

void StfFile::New()
{
    m_root = Node::Created();
}

void StfFile::Load()
{
    LoadBytes(m_files.ReadFile(m_fileName));
}

void StfFile::LoadBytes(std::string bytes)
{
    m_root = host::NamingIfOutOfMemory(m_fileName, [&] {
        return Node::RootOf(stavfile::ReadSource(std::move(bytes), m_fileName));
    });
}

void StfFile::Save()
{
    m_files.WriteFile(m_fileName, ToBytes());
}

std::string StfFile::ToBytes() const
{
    const stavfile::Source *source = m_root->source.get();
    if (!source)
        return stavfile::Encode(stavfile::Writer(m_root).Run(), Encoding(), HasBom(), {});
    if (m_root->Untouched())
        return stavfile::BytesOfHeldText(source->text, source->encoding, source->bom,
                                         source->oddByte);
    if (source->form != stavfile::Form::Text)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           m_fileName + ": " + source->notes.front().text);
    std::string text = stavfile::Writer(m_root).Run();
    const bool eightBit = source->encoding == stavfile::Encoding::Utf8 ||
                          source->encoding == stavfile::Encoding::Windows1252;
    if (eightBit && source->header.empty() && stavfile::LooksBinary(text))
        std::replace(text.begin(), text.end(), '\0', ' '); // padding that is no longer at the end
    return stavfile::Encode(text, source->encoding, source->bom, source->oddByte);
}

StfNodes StfFile::Nodes() const
{
    return StfNodes(m_root);
}

StfNode StfFile::FindNode(std::string_view name) const
{
    for (StfNode node : Nodes())
        if (host::EqualsNoCase(node.Name(), name))
            return node;
    return {};
}

StfNode StfFile::Require(std::string_view name) const
{
    StfNode node = FindNode(name);
    if (!node)
        throw RuntimeError(ErrorNumber::ObjectNotSet, (m_fileName.empty() ? "" : m_fileName + ": ")
                                                          .append("there is no ")
                                                          .append(name)
                                                          .append(" block"));
    return node;
}

stavfile::Form StfFile::Form() const
{
    return m_root->source ? m_root->source->form : stavfile::Form::Text;
}

stavfile::Encoding StfFile::Encoding() const
{
    return m_root->source ? m_root->source->encoding : stavfile::Encoding::Utf16Le;
}

bool StfFile::HasBom() const
{
    return m_root->source ? m_root->source->bom : true;
}

std::string StfFile::Header() const
{
    return m_root->source ? m_root->source->header : stavfile::Writer::kNewHeader;
}

const std::vector<stavfile::Note> &StfFile::Notes() const
{
    static const std::vector<stavfile::Note> kNone;
    return m_root->source ? m_root->source->notes : kNone;
}
