// The methods of removing files, and which of them the settings choose.
#pragma once

#include <string>
#include <string_view>

namespace settings {

enum class Module { Brasmir, Lumaro };

// In the order in which the settings are asked: the first that is on decides, and Delete is also what is done
// where none is.
enum class CleaningMethod { RecycleBin, Erase, Delete };

// What the module's settings choose at this moment. Raises for a setting that is no number.
CleaningMethod ConfiguredMethod(Module module);

// The method that an entry of the results' context menu names: "Recycle bin", "Erase", case included;
// anything else is Delete.
CleaningMethod MethodNamed(std::string_view menuWord);

// The module's passes of an erasing. Raises for a setting that is no number.
short ErasePasses(Module module);

// How the box "Selected settings..." names the method: "Move files to recycle bin". It asks the settings in
// an order of its own, Delete first and Erase where nothing else is on.
std::string ShownMethod(Module module);

}  // namespace settings
