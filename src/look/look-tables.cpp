// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "look/look-tables_p.h"

#include "style-manager/style-manager.h"
#include "utils/component-strings.h"
#include "utils/ui-path-manager.h"

namespace Vela {

LookTables LookTables::installed()
{
    const ImageManager *images = ImageManager::getInstance();
    return {UIPathManager::getInstance()->m_paths,
            ComponentStrings::getInstance()->m_strings,
            StyleManager::getInstance()->m_sections,
            images->m_type,
            images->m_imageFolder,
            images->m_tempImageFolder,
            images->m_images,
            Look::colors()};
}

void LookTables::install() const
{
    UIPathManager::getInstance()->m_paths = paths;
    ComponentStrings::getInstance()->m_strings = texts;
    StyleManager::getInstance()->m_sections = sections;
    ImageManager *manager = ImageManager::getInstance();
    manager->m_type = imageLoading;
    manager->m_imageFolder = imageFolder;
    manager->m_tempImageFolder = tempImageFolder;
    manager->m_images = images;
    Look::setColors(colors);
}

} // namespace Vela
