// Plug-ins: writing a rule file and carrying one out.
#pragma once

#include <string>

#include "forms/frmPlugInMaker.h"

namespace m_PlugIns {

// Writes the plug-in that the form holds to "PlugIns\category\name.plg", making the category's folder. True
// when it is written, False on any failure, of which it shows nothing: the caller tells. The whole text is
// put together before the file is opened, so that a failure leaves a file of that name as it was.
bool SavePlugInFile(frmPlugInMaker& form);

// Carries out one file from top to bottom and shows the counters as they grow. What can't be carried out ends
// the file with a report of its own; what was removed so far stays removed. The operations refuse what no
// rule may name: relative and empty paths, ways through links, drive roots, the Windows folder and the like.
void RunPlugInFile(const std::string& sPlugInCategory, const std::string& sPlugInName);

}  // namespace m_PlugIns
