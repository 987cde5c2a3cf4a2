// Placeholder: filled in by its owner.
#pragma once
