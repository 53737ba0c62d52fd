// The Drives page: the drives that a scan may cover, and the details of one.
#pragma once

#include <string>
#include <vector>

#include "forms/frmMain.h"

namespace m_Drives {

// Drives that count are the system's removable and fixed ones, in its order.
struct ListedDrive {
  std::string root;         // "C:\"
  std::string description;  // "Removable drive" or "Fixed Drive"
};
std::vector<ListedDrive> ListedDrives();

// Fills lvwDrivesBrasmir from the system. The rows that were there go, and their ticks with them.
void AssignDriveList(frmMain& form);

void cmdAddDrivesBrasmir_Click(frmMain& form);
// The details of the selected drive.
void lvwDrivesBrasmir_Click(frmMain& form);

}  // namespace m_Drives
