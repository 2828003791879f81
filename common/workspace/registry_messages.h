#pragma once

// What a failure with the user's strings is called, wherever a system keeps them.

inline constexpr char z_registry_opening_text[] = "Error opening key in the Windows registry.";
inline constexpr char z_registry_creating_text[] = "Error creating/opening key in the Windows registry.";
inline constexpr char z_registry_storing_text[] = "Error storing value in the Windows registry.";
inline constexpr char z_registry_deleting_text[] = "Error deleting value in the Windows registry.";
inline constexpr char z_registry_parsing_text[] = "Error parsing value in the Windows registry.";
